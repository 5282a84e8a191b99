#pragma once

#include <string>
#include <string_view>

namespace toolkit::qt {

/// What is harmless of a list of CSS declarations: fonts, colours, alignment and distances of a sane size. Nothing that
/// is left refers to anything outside of it. May be empty.
[[nodiscard]] std::string HarmlessDeclarations(std::string_view declarations);

/// What is harmless of a style sheet: as many rules as notes need, for tags and classes, of harmless declarations.
[[nodiscard]] std::string HarmlessStyleSheet(std::string_view sheet);

/// Whether `text` has ASCII letters, digits and the characters of `others` only.
[[nodiscard]] bool HasOnlyLettersAnd(std::string_view text, std::string_view others);

}  // namespace toolkit::qt
