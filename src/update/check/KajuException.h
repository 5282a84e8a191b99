#pragma once

#include <string>

#include "toolkit/Localization.h"
#include "toolkit/RuntimeException.h"

namespace Kaju {

/// A failure of the update library.
class KajuException : public toolkit::RuntimeException {
 public:
  // clang-format off
  static constexpr toolkit::LocalizedText kErrorCantFindLibsFolder{"KajuException.kErrorCantFindLibsFolder", "Can’t locate this applications Libs folder."};
  static constexpr toolkit::LocalizedText kErrorImproperFunction{"KajuException.kErrorImproperFunction", "This function cannot be used on this platform."};
  static constexpr toolkit::LocalizedText kErrorMissingUpdateURL{"KajuException.kErrorMissingUpdateURL", "The update URL is missing."};
  // clang-format on

  /// `location` is the function that failed; it becomes the last entry of Stack.
  KajuException(const std::string& message, std::string location) : RuntimeException(message) {
    Stack.push_back(std::move(location));
  }
};

}  // namespace Kaju
