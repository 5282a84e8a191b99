#include "update/install/Updating.h"

#include <utility>

#include "shell/App.h"

namespace Kaju {

void StartUpdate(std::shared_ptr<UpdateInitiater> initiater) { App::Current().UpdateInitiater = std::move(initiater); }

void CancelUpdate() {
  if (const auto initiater = std::exchange(App::Current().UpdateInitiater, nullptr)) initiater->Cancel();
}

}  // namespace Kaju
