#pragma once

#include <string>
#include <string_view>

#include "toolkit/qt/HTMLTokenizer.h"

namespace toolkit::qt {

/// What an element is to the structure of a page.
enum class ElementKind {
  /// Is left out; what stands in it is shown.
  Ignored,
  /// Is left out together with what stands in it, which is no HTML.
  Hidden,
  StyleSheet,
  /// Has no content and no end tag.
  Empty,
  Inline,
  Block,
  List,
  Item,
  Table,
  Row,
  Cell,
};

/// How an element of HTML is shown.
struct PageElement {
  ElementKind Kind = ElementKind::Ignored;
  /// The element that shows it.
  std::string_view ShownAs;
};

/// What becomes of the element of that name, in small letters.
[[nodiscard]] PageElement ElementOf(std::string_view name);

/// The attributes of a start tag that are harmless, as they stand behind the name in a tag. Addresses are not among
/// them.
[[nodiscard]] std::string HarmlessAttributes(const HTMLToken& tag);

/// `text` as the value of an attribute in double quotes.
[[nodiscard]] std::string QuoteAttribute(std::string_view text);

/// The number from 1 to `most` that an attribute holds; 0 if it holds anything else.
[[nodiscard]] int NumberIn(std::string_view value, int most);

}  // namespace toolkit::qt
