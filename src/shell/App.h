#pragma once

#include <memory>
#include <string>

#include "toolkit/Application.h"
#include "toolkit/FolderItem.h"
#include "toolkit/Picture.h"

namespace Kaju {
class UpdateInitiater;
}

/// The application object: there is exactly one, and it outlives all windows.
class App final : public toolkit::Application {
 public:
  /// A prepared update, if there is one. It is installed when the application releases it at its end.
  std::shared_ptr<Kaju::UpdateInitiater> UpdateInitiater;

  explicit App(toolkit::ReleaseNumbers version) : Application(version) {}

  /// The application object. Aborts if there is none.
  static App& Current();

  /// The running version as three numbers separated by points, as in "1.0.12".
  [[nodiscard]] std::string DunmereVersion() const;

  /// The folder of the update library's preferences, below the user's application data. Each call creates it if it is
  /// missing; a failure to do so is not reported.
  [[nodiscard]] toolkit::FolderItem KajuPrefFolder() const;

 protected:
  void Event_Close() override;
};

/// The banner of the main window, 600 by 164 pixels. Loaded by the first call; all calls return the same object.
[[nodiscard]] std::shared_ptr<const toolkit::Picture> Logo_Banner_600x164();
