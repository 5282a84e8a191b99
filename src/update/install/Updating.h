#pragma once

#include <memory>

#include "update/install/UpdateInitiater.h"

namespace Kaju {

/// Gives the application a prepared update. It is installed when the application ends and nobody else holds it.
void StartUpdate(std::shared_ptr<UpdateInitiater> initiater);

/// Takes the prepared update back, whoever else holds it. Does nothing if there is none.
void CancelUpdate();

}  // namespace Kaju
