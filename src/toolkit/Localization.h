#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// The text that the translation files beside the program have for `key` in `language` (such as "de" or "pt-BR"; empty
/// for the user's own languages in their order), or `defaultText`, which is English. A file is looked for at the first
/// text that is asked for in its language, and never again.
[[nodiscard]] std::string GetLocalizedString(std::string_view key, std::string_view defaultText,
                                             std::string_view language);

/// A text for the user: its key in the translations, and how it stands in English. Called as a function, it gives the
/// text in a language, or in the user's own if that is empty.
struct LocalizedText {
  std::string_view Key;
  std::string_view Default;

  [[nodiscard]] std::string operator()(std::string_view language = {}) const {
    return GetLocalizedString(Key, Default, language);
  }
};

}  // namespace toolkit
