#pragma once

#include <memory>
#include <string>

#include "toolkit/Application.h"
#include "toolkit/FolderItem.h"
#include "toolkit/Picture.h"

namespace Kaju {
class UpdateInitiater;
}

/// The application object: there is one, and it outlives all windows.
class App final : public toolkit::Application {
 public:
  /// A prepared update, if there is one. It is installed when the application lets go of it at its end.
  std::shared_ptr<Kaju::UpdateInitiater> UpdateInitiater;

  explicit App(toolkit::ReleaseNumbers version) : Application(version) {}

  /// The application object. Misuse, and the end of the program, if there is none.
  static App& Current();

  /// The running version as three numbers with a point between them, as in "1.0.12".
  [[nodiscard]] std::string DunmereVersion() const;

  /// Where the update library keeps its preferences, under the user's application data. Each call creates the folder
  /// if it is missing, and does not tell whether that worked.
  [[nodiscard]] toolkit::FolderItem KajuPrefFolder() const;

 protected:
  void Event_Close() override;
};

/// The banner of the main window, 600 by 164 pixels. Opened at the first call; always the same object.
[[nodiscard]] std::shared_ptr<const toolkit::Picture> Logo_Banner_600x164();
