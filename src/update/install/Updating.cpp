#include "update/install/Updating.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "shell/App.h"
#include "toolkit/MessageDialog.h"
#include "update/check/KajuLocale.h"
#include "update/install/Leftovers.h"

namespace Kaju {

void StartUpdate(std::shared_ptr<UpdateInitiater> initiater) { App::Current().UpdateInitiater = std::move(initiater); }

void TellFailedUpdate(std::span<char* const> arguments) {
  if (std::ranges::find(arguments, std::string_view("--kaju-fail")) == arguments.end()) return;
  RemoveFailedUpdates();
  toolkit::MessageDialog dialog;
  dialog.Icon = toolkit::DialogIcon::Caution;
  dialog.Message = KajuLocale::kUpdateFailedMessage();
  dialog.Explanation = KajuLocale::kUpdateFailedExplanation();
  (void)dialog.ShowModal();
}

void CancelUpdate() {
  if (const auto initiater = std::exchange(App::Current().UpdateInitiater, nullptr)) initiater->Cancel();
}

}  // namespace Kaju
