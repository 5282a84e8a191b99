#pragma once

#include <functional>
#include <string>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// The maturity of a release.
enum class Stage { Development = 0, Alpha = 1, Beta = 2, Final = 3 };

/// The stage as a number, 0 to 3.
[[nodiscard]] constexpr int CodeOf(Stage stage) { return static_cast<int>(stage); }

/// The parts of a version: three numbers, a stage, and the number of the build within that stage.
struct ReleaseNumbers {
  int Major = 0;
  int Minor = 0;
  int Bug = 0;
  Stage StageCode = Stage::Final;
  int NonRelease = 0;
};

/// The program as one object: its version and its life cycle.
class Application {
 public:
  /// Only one may exist at a time.
  explicit Application(ReleaseNumbers version);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  virtual ~Application();

  /// The one application object, nullptr if there is none.
  static Application* Current();

  [[nodiscard]] int MajorVersion() const { return version_.Major; }
  [[nodiscard]] int MinorVersion() const { return version_.Minor; }
  [[nodiscard]] int BugVersion() const { return version_.Bug; }
  /// 0 to 3 for development, alpha, beta and final.
  [[nodiscard]] int StageCode() const { return CodeOf(version_.StageCode); }
  [[nodiscard]] int NonReleaseVersion() const { return version_.NonRelease; }
  /// The file of the running program, with all links resolved.
  [[nodiscard]] static FolderItem ExecutableFile();

  /// Runs the event loop, starting with `lateStartup`. Returns the exit status after Quit() and Event_Close.
  int Run(const std::function<void()>& lateStartup);

 protected:
  /// The program is quitting, and its windows are closed. Called once. Dialogs can still be shown, and nested event
  /// loops run.
  virtual void Event_Close() {}

 private:
  ReleaseNumbers version_;
};

/// Ends the program with `status` once the running handlers have returned. Does nothing while a dialog is open.
void Quit(int status = 0);

}  // namespace toolkit
