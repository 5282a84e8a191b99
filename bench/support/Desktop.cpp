#include "support/Desktop.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include "support/MemoryTransfer.h"

namespace bench {
namespace {

constexpr double longestWait = 300;
constexpr std::chrono::seconds wakeInterval(1);

}  // namespace

/// A running transfer, which records in the desktop when its reply arrives.
class Desktop::Watch final : public toolkit::HTTPTransfer, public toolkit::HTTPTransferEvents {
 public:
  Watch(Desktop& desktop, toolkit::HTTPTransferEvents& events) : desktop_(desktop), events_(events) {}

  static std::unique_ptr<Watch> Start(Desktop& desktop, toolkit::HTTPRequest request,
                                      toolkit::HTTPTransferEvents& events) {
    auto watch = std::make_unique<Watch>(desktop, events);
    for (const auto& [path, body] : desktop.answers_) {
      if (!request.URL.ends_with(path)) continue;
      watch->transfer_ = std::make_unique<MemoryTransfer>(body, *watch);
      return watch;
    }
    watch->transfer_ = desktop.Qt.StartTransfer(std::move(request), *watch);
    return watch;
  }

  void Abort() override { transfer_->Abort(); }

 private:
  void HeadersReceived(int status, toolkit::HTTPHeaders headers, std::optional<std::uint64_t> length) override {
    desktop_.headersAt_ = Clock::now();
    events_.HeadersReceived(status, std::move(headers), length);
  }
  void BodyReceived(std::string_view bytes) override {
    desktop_.lastByteAt_ = Clock::now();
    events_.BodyReceived(bytes);
  }
  void BodySent(std::uint64_t sent, std::uint64_t total) override { events_.BodySent(sent, total); }
  void Finished() override { events_.Finished(); }
  void Failed(const toolkit::TransferFailure& failure) override { events_.Failed(failure); }

  Desktop& desktop_;
  toolkit::HTTPTransferEvents& events_;
  std::unique_ptr<toolkit::HTTPTransfer> transfer_;
};

std::unique_ptr<toolkit::HTTPTransfer> Desktop::StartTransfer(toolkit::HTTPRequest request,
                                                              toolkit::HTTPTransferEvents& events) {
  constexpr std::string_view usualPort = ":1701/";
  const std::size_t port = request.URL.find(usualPort);
  if (!service_.empty() && port != std::string::npos) {
    request.URL = service_ + request.URL.substr(port + usualPort.size() - 1);
  }
  return Watch::Start(*this, std::move(request), events);
}

toolkit::DialogButton Desktop::AskUser(const toolkit::MessageDialog& dialog, const toolkit::Window* /*owner*/) {
  std::cerr << "A dialog came up: " << dialog.Message << std::endl;
  std::_Exit(EXIT_FAILURE);
}

void Desktop::RunUntil(const std::function<bool()>& isDone) {
  const Clock::time_point start = Clock::now();
  QTimer wake;
  wake.start(wakeInterval);
  while (!isDone()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (SecondsSince(start) < longestWait) continue;
    std::cerr << "What was waited for did not come." << std::endl;
    std::_Exit(EXIT_FAILURE);
  }
}

PaintWatch::PaintWatch(QString control) : control_(std::move(control)) { qApp->installEventFilter(this); }

PaintWatch::~PaintWatch() { qApp->removeEventFilter(this); }

void PaintWatch::ExpectRows(int rows) {
  Expect([rows](QObject& control) {
    const auto* list = qobject_cast<QAbstractItemView*>(&control);
    return list != nullptr && list->model()->rowCount() == rows;
  });
}

double PaintWatch::SecondsToPaint(const std::function<void()>& action) {
  const Clock::time_point start = Clock::now();
  action();
  Wait();
  return SecondsSince(start);
}

// The filter is called before the widget is painted, but the event loop returns only after the whole window is.
void PaintWatch::Wait() {
  painted_ = nullptr;
  Desktop::RunUntil([this] { return painted_ != nullptr; });
}

bool PaintWatch::eventFilter(QObject* watched, QEvent* event) {
  QObject* control = watched->parent();
  const bool isPainted = event->type() == QEvent::Paint && control != nullptr && control->objectName() == control_;
  if (isPainted && counts_(*control)) painted_ = control;
  return false;
}

}  // namespace bench
