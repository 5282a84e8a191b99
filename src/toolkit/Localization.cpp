#include "toolkit/Localization.h"

#include "toolkit/Platform.h"

namespace toolkit {

std::string GetLocalizedString(std::string_view key, std::string_view defaultText, std::string_view language) {
  return Platform::Current().Translation(std::string(key), std::string(language)).value_or(std::string(defaultText));
}

}  // namespace toolkit
