#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace toolkit::qt {

/// One piece of a page of HTML.
struct HTMLToken {
  enum class Kind { Text, StartTag, EndTag, End };

  Kind Is = Kind::End;
  /// Text as it stands in the page, character references included.
  std::string_view Text;
  /// The tag's name in small letters.
  std::string Name;
  /// Names in small letters; values without quotes and with their character references resolved, as far as an address
  /// needs them.
  std::vector<std::pair<std::string, std::string>> Attributes;

  /// The value of the first attribute of that name; empty if there is none.
  [[nodiscard]] std::string_view Attribute(std::string_view name) const;
};

/// Cuts a page of HTML into text and tags, in one pass over any bytes whatever. Comments and declarations are left out;
/// a tag or comment that does not end takes the rest of the page with it.
class HTMLTokenizer {
 public:
  /// `page` must outlive the tokenizer and its tokens.
  explicit HTMLTokenizer(std::string_view page) : rest_(page) {}

  HTMLToken Next();
  /// Goes past the end tag of that name, as after a start tag whose content is no HTML, and returns what stood before.
  std::string_view TakeContent(std::string_view name);

 private:
  HTMLToken TakeText();
  HTMLToken TakeTag();
  std::pair<std::string, std::string> TakeAttribute();
  std::string_view Take(std::size_t count);
  std::string_view TakeUntilAnyOf(std::string_view characters);
  void SkipBlanks();

  std::string_view rest_;
};

}  // namespace toolkit::qt
