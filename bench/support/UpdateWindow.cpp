#include "support/UpdateWindow.h"

#include <utility>

#include "shell/App.h"
#include "support/Desktop.h"

namespace bench {

std::shared_ptr<Kaju::UpdateInformation> Offer(const std::string& version, const std::string& url,
                                               const std::string& hash) {
  auto offer = std::make_shared<Kaju::UpdateInformation>();
  offer->AppName = "Corvane";
  offer->Version = version;
  for (int line = 0; line < 200; ++line) {
    offer->ReleaseNotes.append("<h3>Change ").append(std::to_string(line));
    offer->ReleaseNotes += "</h3><p>The window of a server tells <b>how long</b> it has been <i>running</i>.</p>";
  }
  const auto binary = offer->FetchBinary("LinuxBinary64bit");
  binary->URL = url;
  binary->Hash = hash;
  binary->ExecutableName = "corvane";
  return offer;
}

UpdateWindow::UpdateWindow()
    : checker_(std::make_shared<Kaju::UpdateChecker>(toolkit::FolderItem(folder_.Path()), "preferences")) {
  checker_->DefaultImage = Logo_Banner_600x164();
}

std::shared_ptr<KajuUpdateWindow> UpdateWindow::Open(Kaju::Offers offers) {
  auto window = KajuUpdateWindow::Shared();
  window->ChooseUpdate(checker_, std::move(offers));
  return window;
}

void UpdateWindow::Close(std::shared_ptr<KajuUpdateWindow> window) {
  const std::weak_ptr<KajuUpdateWindow> closing = window;
  std::exchange(window, nullptr)->Cancel();
  Desktop::RunUntil([&] { return closing.expired(); });
}

}  // namespace bench
