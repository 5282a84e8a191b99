#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QAbstractItemView>

#include "support/Measure.h"
#include "toolkit/Platform.h"
#include "toolkit/Process.h"
#include "toolkit/Window.h"
#include "toolkit/qt/QtPlatform.h"

namespace bench {

/// The first base class of Desktop, since the platform that is constructed last is Platform::Current().
struct QtBelow {
  QtBelow(int& argumentCount, char** arguments) : Qt(SetUp(), argumentCount, arguments) {}
  toolkit::qt::QtPlatform Qt;

 private:
  static toolkit::ProgramFacts SetUp() {
    toolkit::SetUpProcess();  // before the platform is made
    return {.Name = "Benchmark", .Id = "corvane"};
  }
};

/// The program's own platform on Qt, which records when replies arrive. Requests can be redirected to another service,
/// or answered from memory, so that the program's real windows run without port 1701 or without any service. A dialog
/// ends the benchmark, since none is expected.
class Desktop final : private QtBelow, public toolkit::Platform {
 public:
  Desktop(int& argumentCount, char** arguments) : QtBelow(argumentCount, arguments), Platform(Qt.Program()) {}
  ~Desktop() override { CloseWindows(); }

  /// From now on, requests for "https://…:1701/path" are sent to `baseURL` with the same path.
  void RedirectTo(std::string baseURL) { service_ = std::move(baseURL); }
  /// From now on, requests whose URL ends with `path` get this reply, with status 200.
  void Answer(const std::string& path, std::shared_ptr<const std::string> body) { answers_[path] = std::move(body); }

  /// When the headers of the newest reply arrived, and the last part of its body.
  [[nodiscard]] Clock::time_point HeadersAt() const { return headersAt_; }
  [[nodiscard]] Clock::time_point LastByteAt() const { return lastByteAt_; }

  /// Runs the event loop until `isDone`. Ends the benchmark if that takes minutes.
  static void RunUntil(const std::function<bool()>& isDone);

  std::unique_ptr<toolkit::HTTPTransfer> StartTransfer(toolkit::HTTPRequest request,
                                                       toolkit::HTTPTransferEvents& events) override;
  void RunEventsUntil(const std::function<bool()>& isDone) override { Qt.RunEventsUntil(isDone); }
  bool RunDueEvents() override { return Qt.RunDueEvents(); }
  std::unique_ptr<toolkit::PlatformTimer> StartTimer(std::chrono::milliseconds period,
                                                     std::function<void()> expired) override {
    return Qt.StartTimer(period, std::move(expired));
  }
  std::unique_ptr<toolkit::ChildProcess> StartProcess(const std::string& commandLine,
                                                      std::function<void(toolkit::ProcessEnd)> ended) override {
    return Qt.StartProcess(commandLine, std::move(ended));
  }
  [[nodiscard]] std::chrono::milliseconds Uptime() const override { return Qt.Uptime(); }
  void TrustAuthority(std::string_view certificate) override { Qt.TrustAuthority(certificate); }
  std::optional<toolkit::Pixels> DecodePicture(std::string encoded, const toolkit::StillWanted& wanted) override {
    return Qt.DecodePicture(std::move(encoded), wanted);
  }
  std::optional<std::string> Translation(const std::string& key, const std::string& language) override {
    return Qt.Translation(key, language);
  }
  bool OpenURL(const std::string& /*url*/) override { return false; }
  int RunLoop(const std::function<void()>& start) override { return Qt.RunLoop(start); }
  void Quit(int /*status*/) override {}
  [[nodiscard]] toolkit::FolderItem ApplicationDataFolder() const override { return Qt.ApplicationDataFolder(); }
  [[nodiscard]] toolkit::FolderItem DesktopFolder() const override { return Qt.DesktopFolder(); }
  [[nodiscard]] toolkit::FolderItem CacheFolder() const override { return Qt.CacheFolder(); }

 protected:
  void Present(toolkit::Window& window) override { Qt.Open(window.shared_from_this()); }
  void BringToFront(toolkit::Window& window) override { Qt.Open(window.shared_from_this()); }
  void Withdraw(toolkit::Window& window) override { Qt.Close(window); }
  toolkit::DialogButton AskUser(const toolkit::MessageDialog& dialog, const toolkit::Window* owner) override;
  void RunNextEventLater() override {}

 private:
  class Watch;

  std::string service_;
  std::map<std::string, std::shared_ptr<const std::string>> answers_;
  Clock::time_point headersAt_;
  Clock::time_point lastByteAt_;
};

/// Waits until a control that scrolls, such as a list, has been painted.
class PaintWatch final : public QObject {
 public:
  /// `control` is its object name.
  explicit PaintWatch(QString control);
  ~PaintWatch() override;

  /// From now on, only paint events count for which this function returns true.
  void Expect(std::function<bool(QObject& control)> counts) { counts_ = std::move(counts); }
  /// From now on, only paint events count at which the list has `rows` rows.
  void ExpectRows(int rows);
  /// Calls `action`, then runs the event loop until the control is painted. Returns the seconds for both.
  double SecondsToPaint(const std::function<void()>& action);
  /// Runs the event loop until the control is painted.
  void Wait();
  /// The list that was painted last; nullptr if none was.
  [[nodiscard]] QAbstractItemView* Painted() const { return qobject_cast<QAbstractItemView*>(painted_); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QString control_;
  std::function<bool(QObject& control)> counts_ = [](QObject&) { return true; };
  QObject* painted_ = nullptr;
};

}  // namespace bench
