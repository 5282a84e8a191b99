#pragma once

#include <memory>
#include <span>

#include "update/install/UpdateInitiater.h"

namespace Kaju {

/// Gives the application a prepared update. It is installed when the application ends and nobody else holds it.
void StartUpdate(std::shared_ptr<UpdateInitiater> initiater);

/// If the arguments of the program say that it was started because an update failed (--kaju-fail): removes what that
/// left, and tells the user.
void TellFailedUpdate(std::span<char* const> arguments);

/// Takes the prepared update back, whoever else holds it. Does nothing if there is none.
void CancelUpdate();

}  // namespace Kaju
