#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// The translation of `key` in `language` (such as "de" or "pt-BR"; empty for the user's preferred languages), or
/// `defaultText`, which is English. Each translation file beside the program is loaded once, on first use.
[[nodiscard]] std::string GetLocalizedString(std::string_view key, std::string_view defaultText,
                                             std::string_view language);

/// A text for the user: its key in the translations and its English default. The call operator returns the text in a
/// language, or in the user's own if that is empty.
struct LocalizedText {
  std::string_view Key;
  std::string_view Default;

  [[nodiscard]] std::string operator()(std::string_view language = {}) const {
    return GetLocalizedString(Key, Default, language);
  }
};

}  // namespace toolkit
