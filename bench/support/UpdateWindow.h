#pragma once

#include <memory>
#include <string>

#include "support/TemporaryFolder.h"
#include "update/install/KajuUpdateWindow.h"

namespace bench {

/// An offer for this platform, with notes of some length.
[[nodiscard]] std::shared_ptr<Kaju::UpdateInformation> Offer(const std::string& version,
                                                             const std::string& url = "http://h/a.zip",
                                                             const std::string& hash = "00");

/// Opens the program's update window as a check for updates does.
class UpdateWindow {
 public:
  UpdateWindow();
  /// Returns when the offer's picture has been loaded or has failed.
  std::shared_ptr<KajuUpdateWindow> Open(Kaju::Offers offers);
  /// Closes the window and waits until it is destroyed. The caller must hold no other pointer to it.
  static void Close(std::shared_ptr<KajuUpdateWindow> window);

 private:
  TemporaryFolder folder_;
  std::shared_ptr<Kaju::UpdateChecker> checker_;
};

}  // namespace bench
