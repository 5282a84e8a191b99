#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/Product.h"
#include "toolkit/Process.h"
#include "toolkit/qt/DecoderProgram.h"
#include "toolkit/qt/QtPlatform.h"
#include "update/install/UpdateWindowPresenter.h"
#include "update/install/Updating.h"

int main(int argc, char** argv) {
  if (const auto status = toolkit::qt::DecodeIfAsked(argc, argv)) return *status;
  toolkit::SetUpProcess();
  toolkit::qt::QtPlatform platform(product::program, argc, argv);
  App app(product::version);

  std::shared_ptr<wMain> mainWindow;
  return app.Run([&] {
    mainWindow = std::make_shared<wMain>(
        [](const std::shared_ptr<CorvaneServer>& server) { std::make_shared<wServer>(server)->Show(); },
        std::make_shared<Kaju::UpdateWindowPresenter>());
    // A failed update is reported before the window's own Open handler runs.
    mainWindow->Open = [opened = mainWindow->Open, argc, argv] {
      Kaju::TellFailedUpdate({argv, static_cast<std::size_t>(argc)});
      opened();
    };
    mainWindow->Show();
  });
}
