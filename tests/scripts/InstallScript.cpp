// As "install-script mac|linux|windows EXECUTABLE REPLACEMENT NAME TEMP-FOLDER PID-FILE": prints the install script.
// As "install-script quit REPLACEMENT NAME": a program that quits at once and is then replaced.

#include <iostream>
#include <map>
#include <span>
#include <string>

#include "shell/App.h"
#include "shell/Product.h"
#include "toolkit/qt/QtPlatform.h"
#include "update/install/ScriptText.h"
#include "update/install/Updating.h"

using toolkit::FolderItem;

int main(int argc, char** argv) {
  const std::span arguments(argv, static_cast<std::size_t>(argc));
  const std::string kind = arguments[1];
  if (kind == "quit") {
    toolkit::qt::QtPlatform platform(product::program, argc, argv);
    App app(product::version);
    return app.Run([&] {
      auto initiater = std::make_shared<Kaju::UpdateInitiater>();
      initiater->ReplacementAppFolder = FolderItem(arguments[2]);
      initiater->ReplacementExecutableName = arguments[3];
      Kaju::StartUpdate(std::move(initiater));
      platform.Quit(EXIT_SUCCESS);
    });
  }
  const std::map<std::string, std::string (*)(const Kaju::ScriptInput&)> scripts{
      {"mac", Kaju::MacScript}, {"linux", Kaju::LinuxScript}, {"windows", Kaju::WindowsScript}};
  std::cout << scripts.at(kind)({.Executable = FolderItem(arguments[2]),
                                 .Version = "1.2.3_64-bit",
                                 .Replacement = FolderItem(arguments[3]),
                                 .ReplacementExecutable = arguments[4],
                                 .TempFolder = FolderItem(arguments[5]),
                                 .PidFile = FolderItem(arguments[6])});
}
