#pragma once

#include <functional>
#include <string>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// How finished a release is.
enum class Stage { Development = 0, Alpha = 1, Beta = 2, Final = 3 };

/// The stage as a number, 0 to 3.
[[nodiscard]] constexpr int CodeOf(Stage stage) { return static_cast<int>(stage); }

/// What names a release: three numbers, a stage, and the number of the build in that stage.
struct ReleaseNumbers {
  int Major = 0;
  int Minor = 0;
  int Bug = 0;
  Stage StageCode = Stage::Final;
  int NonRelease = 0;
};

/// The program as one object: its version, its life from the start of the event loop to the end.
class Application {
 public:
  /// There can be only one at a time.
  explicit Application(ReleaseNumbers version);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  virtual ~Application();

  /// The one application object, or nullptr before there is one.
  static Application* Current();

  [[nodiscard]] int MajorVersion() const { return version_.Major; }
  [[nodiscard]] int MinorVersion() const { return version_.Minor; }
  [[nodiscard]] int BugVersion() const { return version_.Bug; }
  /// 0 to 3 for development, alpha, beta and final.
  [[nodiscard]] int StageCode() const { return CodeOf(version_.StageCode); }
  [[nodiscard]] int NonReleaseVersion() const { return version_.NonRelease; }
  /// The file of the running program, with all links followed.
  [[nodiscard]] static FolderItem ExecutableFile();

  /// Runs the event loop, `lateStartup` first. Returns the process's exit status once the program has been told to
  /// quit and Event_Close is done.
  int Run(const std::function<void()>& lateStartup);

 protected:
  /// The program is quitting, and its windows are closed. Called once. Dialogs still stand, and the event loop still
  /// runs where something waits.
  virtual void Event_Close() {}

 private:
  ReleaseNumbers version_;
};

/// Ends the program with `status`, after the handlers that are running. Does nothing while a dialog stands.
void Quit(int status = 0);

}  // namespace toolkit
