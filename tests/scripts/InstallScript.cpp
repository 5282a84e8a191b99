// As "install-script mac|linux|windows EXECUTABLE REPLACEMENT NAME TEMP-FOLDER PID-FILE": prints the install script.

#include <iostream>
#include <string_view>

#include "update/install/ScriptText.h"

using toolkit::FolderItem;

int main(int /*argc*/, char** argv) {
  const std::string_view kind = argv[1];
  const auto script = kind == "mac" ? Kaju::MacScript : kind == "windows" ? Kaju::WindowsScript : Kaju::LinuxScript;
  std::cout << script({.Executable = FolderItem(argv[2]),
                       .Version = "1.2.3_64-bit",
                       .Replacement = FolderItem(argv[3]),
                       .ReplacementExecutable = argv[4],
                       .TempFolder = FolderItem(argv[5]),
                       .PidFile = FolderItem(argv[6])});
}
