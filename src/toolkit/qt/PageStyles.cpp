#include "toolkit/qt/PageStyles.h"

#include <algorithm>

#include "toolkit/Text.h"

namespace toolkit::qt {
namespace {

// Each rule is tried on each element.
constexpr int mostRules = 40;
constexpr std::size_t longestValue = 100;

constexpr std::string_view colors[] = {"background", "background-color", "color"};
constexpr std::string_view otherProperties[] = {
    "font-family",   "font-size",    "font-style", "font-weight",     "margin",         "margin-bottom",
    "margin-left",   "margin-right", "margin-top", "padding",         "padding-bottom", "padding-left",
    "padding-right", "padding-top",  "text-align", "text-decoration", "vertical-align", "white-space"};

bool IsOneOf(const auto& names, std::string_view name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

std::size_t LongestNumber(std::string_view text) {
  std::size_t longest = 0;
  std::size_t length = 0;
  for (const char character : text) {
    length = IsDigit(character) ? length + 1 : 0;
    longest = std::max(longest, length);
  }
  return longest;
}

// A size relative to another one would grow with every element inside an element.
bool IsHarmless(std::string_view property, std::string_view value) {
  if (value.size() > longestValue) return false;
  if (IsOneOf(colors, property))
    return HasOnlyLettersAnd(value, "#%., ()") && LowerCase(value).find("url") == std::string::npos;
  if (!IsOneOf(otherProperties, property) || !HasOnlyLettersAnd(value, "%., '\"-")) return false;
  if (property != "font-size") return LongestNumber(value) <= 3;
  const bool isAbsolute = value.ends_with("px") || value.ends_with("pt");
  return LongestNumber(value) == 0 || (LongestNumber(value) <= 2 && isAbsolute);
}

std::string_view Before(std::string_view text, std::size_t end) { return text.substr(0, end); }

std::string_view After(std::string_view text, std::size_t end) {
  return end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
}

std::string WithoutComments(std::string_view sheet) {
  std::string kept;
  while (!sheet.empty()) {
    const std::size_t start = sheet.find("/*");
    kept += Before(sheet, start);
    if (start == std::string_view::npos) break;
    const std::size_t end = sheet.find("*/", start + 2);
    sheet = end == std::string_view::npos ? std::string_view() : sheet.substr(end + 2);
  }
  return kept;
}

}  // namespace

std::string HarmlessDeclarations(std::string_view declarations) {
  std::string kept;
  while (!declarations.empty()) {
    const std::size_t end = declarations.find(';');
    const std::string_view declaration = Before(declarations, end);
    declarations = After(declarations, end);
    const std::size_t colon = declaration.find(':');
    const std::string property = LowerCase(Trim(Before(declaration, colon)));
    const std::string_view value = Trim(After(declaration, colon));
    if (!value.empty() && IsHarmless(property, value)) kept.append(property).append(":").append(value).append(";");
  }
  return kept;
}

std::string HarmlessStyleSheet(std::string_view sheet) {
  const std::string text = WithoutComments(sheet);
  std::string kept;
  std::string_view rest = text;
  for (int rule = 0; rule < mostRules && !rest.empty(); ++rule) {
    const std::size_t opening = rest.find('{');
    const std::string_view selectors = Trim(Before(rest, opening));
    rest = After(rest, opening);
    const std::size_t closing = rest.find('}');
    const std::string declarations = HarmlessDeclarations(Before(rest, closing));
    rest = After(rest, closing);
    const bool isPlain = selectors.size() <= longestValue && HasOnlyLettersAnd(selectors, "-_., \n\r\t");
    if (isPlain && !selectors.empty() && !declarations.empty()) {
      kept.append(selectors).append("{").append(declarations).append("}");
    }
  }
  return kept;
}

bool HasOnlyLettersAnd(std::string_view text, std::string_view others) {
  return std::all_of(text.begin(), text.end(), [&](char character) {
    const bool isLetter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    return isLetter || IsDigit(character) || others.find(character) != std::string_view::npos;
  });
}

}  // namespace toolkit::qt
