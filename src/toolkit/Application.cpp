#include "toolkit/Application.h"

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
  Event_Close();
  return status;
}

void Quit(int status) { Platform::Current().Quit(status); }

}  // namespace toolkit
