#pragma once

#include <string>
#include <string_view>

#include "toolkit/Localization.h"

namespace Kaju {

/// A text for the user: its key in the translations, and how it stands in English. Called as a function, it gives the
/// text in a language, or in the user's own if that is empty.
struct LocalizedText {
  std::string_view Key;
  std::string_view Default;

  [[nodiscard]] std::string operator()(std::string_view language = {}) const {
    return toolkit::GetLocalizedString(Key, Default, language);
  }
};

}  // namespace Kaju
