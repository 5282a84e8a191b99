#include "shell/App.h"

#include <cstdlib>
#include <iostream>

#include "toolkit/SpecialFolder.h"

App& App::Current() {
  auto* app = dynamic_cast<App*>(Application::Current());
  if (app == nullptr) {
    std::cerr << "The application object was used before there was one.\n";
    std::abort();
  }
  return *app;
}

std::string App::DunmereVersion() const {
  return std::to_string(MajorVersion()) + "." + std::to_string(MinorVersion()) + "." + std::to_string(BugVersion());
}

toolkit::FolderItem App::KajuPrefFolder() const {
  toolkit::FolderItem folder = toolkit::SpecialFolder::ApplicationData().Child("Brackfen_Lookout").Child("Kaju");
  if (!folder.Exists()) folder.CreateAsFolder();
  return folder;
}

void App::Event_Close() { UpdateInitiater = nullptr; }

std::shared_ptr<const toolkit::Picture> Logo_Banner_600x164() {
  static const auto picture = toolkit::OpenPictureResource("Logo_Banner_600x164");
  return picture;
}
