#pragma once

#include <memory>
#include <span>

#include "update/install/UpdateInitiater.h"

namespace Kaju {

/// Hands a prepared update to the application. It is installed when the application ends and no other owner is left.
void StartUpdate(std::shared_ptr<UpdateInitiater> initiater);

/// If the program's arguments report a failed update (--kaju-fail), deletes its remains and informs the user.
void TellFailedUpdate(std::span<char* const> arguments);

/// Takes the prepared update from the application and cancels it, even if there are other owners. Does nothing if there
/// is none.
void CancelUpdate();

}  // namespace Kaju
