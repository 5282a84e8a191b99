#include "toolkit/qt/HTMLTokenizer.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "toolkit/Text.h"

namespace toolkit::qt {
namespace {

constexpr std::string_view blanks = " \t\n\f\r";
constexpr std::size_t mostAttributes = 50;

bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Whether what follows a "<" makes it the beginning of something other than text.
bool BeginsMarkup(std::string_view rest) {
  if (rest.size() < 2) return false;
  const char next = rest[1];
  return IsLetter(next) || next == '!' || next == '?' || (next == '/' && rest.size() > 2 && IsLetter(rest[2]));
}

/// The ASCII character that a reference without "&" and ";" stands for.
std::optional<char> Resolve(std::string_view reference) {
  constexpr std::pair<std::string_view, char> named[] = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [name, character] : named) {
    if (name == reference) return character;
  }
  if (!reference.starts_with('#')) return std::nullopt;
  reference.remove_prefix(1);
  const bool isHex = reference.starts_with('x') || reference.starts_with('X');
  if (isHex) reference.remove_prefix(1);
  unsigned code = 0;
  const auto [end, error] =
      std::from_chars(reference.data(), reference.data() + reference.size(), code, isHex ? 16 : 10);
  const bool isWhole = error == std::errc() && end == reference.data() + reference.size();
  return isWhole && code < 0x80 ? std::optional(static_cast<char>(code)) : std::nullopt;
}

std::string ResolveReferences(std::string_view text) {
  constexpr std::size_t longest = 8;
  std::string resolved;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find('&'), text.size());
    resolved += text.substr(0, start);
    text.remove_prefix(start);
    if (text.empty()) break;
    const std::size_t end = text.substr(0, longest).find(';');
    const auto character = end == std::string_view::npos ? std::nullopt : Resolve(text.substr(1, end - 1));
    resolved += character.value_or('&');
    text.remove_prefix(character ? end + 1 : 1);
  }
  return resolved;
}

}  // namespace

std::string_view HTMLToken::Attribute(std::string_view name) const {
  const auto found =
      std::find_if(Attributes.begin(), Attributes.end(), [&](const auto& one) { return one.first == name; });
  return found == Attributes.end() ? std::string_view() : found->second;
}

HTMLToken HTMLTokenizer::Next() {
  while (BeginsMarkup(rest_) && rest_.starts_with('<') && (rest_[1] == '!' || rest_[1] == '?')) {
    const bool isComment = rest_.starts_with("<!--");
    // A comment may be as short as "<!-->".
    const std::size_t end = isComment ? rest_.find("-->", 2) : rest_.find('>');
    Take(end == std::string_view::npos ? rest_.size() : end + (isComment ? 3 : 1));
  }
  if (rest_.empty()) return {};
  return rest_.front() == '<' && BeginsMarkup(rest_) ? TakeTag() : TakeText();
}

HTMLToken HTMLTokenizer::TakeText() {
  std::size_t end = 0;
  do {
    end = std::min(rest_.find('<', end + 1), rest_.size());
  } while (end < rest_.size() && !BeginsMarkup(rest_.substr(end)));
  HTMLToken token;
  token.Is = HTMLToken::Kind::Text;
  token.Text = Take(end);
  return token;
}

HTMLToken HTMLTokenizer::TakeTag() {
  HTMLToken token;
  token.Is = rest_[1] == '/' ? HTMLToken::Kind::EndTag : HTMLToken::Kind::StartTag;
  Take(token.Is == HTMLToken::Kind::EndTag ? 2 : 1);
  token.Name = LowerCase(TakeUntilAnyOf(" \t\n\f\r/>"));
  while (true) {
    while (rest_.starts_with('/') || (!rest_.empty() && blanks.find(rest_.front()) != std::string_view::npos)) Take(1);
    if (rest_.empty()) return {};
    if (rest_.front() == '>') break;
    auto attribute = TakeAttribute();
    if (token.Attributes.size() < mostAttributes) token.Attributes.push_back(std::move(attribute));
  }
  Take(1);
  return token;
}

std::pair<std::string, std::string> HTMLTokenizer::TakeAttribute() {
  // An attribute may even begin with "=".
  std::string name(Take(1));
  name = LowerCase(name.append(TakeUntilAnyOf(" \t\n\f\r/>=")));
  SkipBlanks();
  if (!rest_.starts_with('=')) return {std::move(name), std::string()};
  Take(1);
  SkipBlanks();
  if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\'')) {
    return {std::move(name), ResolveReferences(TakeUntilAnyOf(" \t\n\f\r>"))};
  }
  const std::string_view quote = Take(1);
  std::string value = ResolveReferences(TakeUntilAnyOf(quote));
  Take(std::min<std::size_t>(rest_.size(), 1));
  return {std::move(name), std::move(value)};
}

std::string_view HTMLTokenizer::TakeContent(std::string_view name) {
  for (std::size_t end = rest_.find("</"); end != std::string_view::npos; end = rest_.find("</", end + 2)) {
    const std::string_view after = rest_.substr(end + 2);
    const bool isWhole = after.size() > name.size() && (blanks.find(after[name.size()]) != std::string_view::npos ||
                                                        after[name.size()] == '/' || after[name.size()] == '>');
    if (!isWhole || !StartsWithIgnoringCase(after, name)) continue;
    const std::string_view content = Take(end);
    TakeTag();
    return content;
  }
  return Take(rest_.size());
}

std::string_view HTMLTokenizer::Take(std::size_t count) {
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(taken.size());
  return taken;
}

std::string_view HTMLTokenizer::TakeUntilAnyOf(std::string_view characters) {
  return Take(std::min(rest_.find_first_of(characters), rest_.size()));
}

void HTMLTokenizer::SkipBlanks() { Take(std::min(rest_.find_first_not_of(blanks), rest_.size())); }

}  // namespace toolkit::qt
