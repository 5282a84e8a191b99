#include "toolkit/Application.h"

#include <filesystem>
#include <system_error>

#include "toolkit/Platform.h"

namespace toolkit {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the one application object
Application* current = nullptr;

}  // namespace

Application::Application(ReleaseNumbers version) : version_(version) { current = this; }

Application::~Application() { current = nullptr; }

Application* Application::Current() { return current; }

int Application::Run(const std::function<void()>& lateStartup) {
  const int status = Platform::Current().RunLoop(lateStartup);
  Platform::Current().CloseWindows();
  Event_Close();
  return status;
}

FolderItem Application::ExecutableFile() {
  std::error_code error;
  return FolderItem(std::filesystem::read_symlink("/proc/self/exe", error));
}

void Quit(int status) {
  if (!Platform::WaitsForUser()) Platform::Current().Quit(status);
}

}  // namespace toolkit
