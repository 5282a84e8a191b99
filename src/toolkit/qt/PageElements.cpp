#include "toolkit/qt/PageElements.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "toolkit/Text.h"
#include "toolkit/qt/PageStyles.h"

namespace toolkit::qt {
namespace {

struct ElementRow {
  ElementKind kind;
  /// Each shown as itself, unless "name=other" says as what.
  std::string_view names;
};

constexpr ElementRow elementRows[] = {
    {ElementKind::Hidden, "iframe noembed noframes script textarea title xmp"},
    {ElementKind::StyleSheet, "style"},
    {ElementKind::Empty, "br hr img"},
    {ElementKind::Inline,
     "a abbr=span b big cite code del=s dfn em font i ins=u kbd label=span mark=span nobr q=span s samp small span "
     "strike=s strong sub sup tt u var"},
    {ElementKind::Block,
     "address article=div aside=div blockquote body center details=div div fieldset=div figcaption=div figure=div "
     "footer=div form=div h1 h2 h3 h4 h5 h6 header=div hgroup=div legend=div main=div nav=div p pre section=div "
     "summary=div"},
    {ElementKind::List, "dir=ul dl menu=ul ol ul"},
    {ElementKind::Item, "dd dt li"},
    {ElementKind::Table, "table"},
    {ElementKind::Row, "tr"},
    {ElementKind::Cell, "td th"},
};

using Elements = std::unordered_map<std::string_view, PageElement>;

Elements MakeElements() {
  Elements elements;
  for (const ElementRow& row : elementRows) {
    for (std::size_t start = 0; start < row.names.size();) {
      const std::size_t end = std::min(row.names.find(' ', start), row.names.size());
      const std::string_view entry = row.names.substr(start, end - start);
      start = end + 1;
      const std::size_t sign = entry.find('=');
      const std::string_view name = entry.substr(0, sign);
      elements[name] = {row.kind, sign == std::string_view::npos ? name : entry.substr(sign + 1)};
    }
  }
  return elements;
}

bool IsLength(std::string_view value) {
  constexpr int widest = 2000;
  const bool isShare = value.ends_with('%');
  if (isShare) value.remove_suffix(1);
  return NumberIn(value, isShare ? 100 : widest) > 0;
}

bool IsNumberUpTo99(std::string_view value) { return value == "0" || NumberIn(value, 99) > 0; }

struct AttributeRow {
  std::string_view name;
  bool (*isHarmless)(std::string_view value);
};

bool IsWord(std::string_view value) { return HasOnlyLettersAnd(value, "-"); }
bool IsColor(std::string_view value) { return HasOnlyLettersAnd(value, "#"); }
bool AreNames(std::string_view value) { return HasOnlyLettersAnd(value, "-_ ,"); }
bool IsRelativeNumber(std::string_view value) {
  return IsNumberUpTo99(value.starts_with('+') || value.starts_with('-') ? value.substr(1) : value);
}
bool IsStartOfList(std::string_view value) { return NumberIn(value, 999'999) > 0; }

constexpr AttributeRow attributeRows[] = {
    {"bgcolor", IsColor},
    {"border", IsNumberUpTo99},
    {"cellpadding", IsNumberUpTo99},
    {"cellspacing", IsNumberUpTo99},
    {"class", AreNames},
    {"color", IsColor},
    {"dir", IsWord},
    {"face", AreNames},
    {"size", IsRelativeNumber},
    {"start", IsStartOfList},
    {"type", IsWord},
    {"valign", IsWord},
    {"width", IsLength},
};

/// Pictures and tables beside the text take the longer to lay out the more there are of them.
bool IsHarmlessAlignment(std::string_view element, std::string_view value) {
  return IsWord(value) && element != "img" && (element != "table" || EqualIgnoringCase(value, "center"));
}

bool IsHarmless(std::string_view element, std::string_view name, std::string_view value) {
  constexpr std::size_t longest = 100;
  if (value.empty() || value.size() > longest) return false;
  if (name == "align") return IsHarmlessAlignment(element, value);
  const auto* row = std::find_if(std::begin(attributeRows), std::end(attributeRows),
                                 [&](const AttributeRow& one) { return one.name == name; });
  return row != std::end(attributeRows) && row->isHarmless(value);
}

}  // namespace

PageElement ElementOf(std::string_view name) {
  static const Elements elements = MakeElements();
  const auto found = elements.find(name);
  return found == elements.end() ? PageElement() : found->second;
}

std::string HarmlessAttributes(const HTMLToken& tag) {
  std::string kept;
  for (const auto& [name, value] : tag.Attributes) {
    if (name == "style") {
      const std::string declarations = HarmlessDeclarations(value);
      if (!declarations.empty()) kept.append(" style=").append(QuoteAttribute(declarations));
    } else if (IsHarmless(tag.Name, name, Trim(value))) {
      kept.append(" ").append(name).append("=").append(QuoteAttribute(Trim(value)));
    }
  }
  return kept;
}

std::string QuoteAttribute(std::string_view text) {
  const std::string escaped = ReplaceAll(ReplaceAll(ReplaceAll(text, "&", "&amp;"), "\"", "&quot;"), "<", "&lt;");
  return std::string("\"").append(escaped).append("\"");
}

int NumberIn(std::string_view value, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  const bool isWhole = error == std::errc() && end == value.data() + value.size();
  return isWhole && number >= 1 && number <= most ? number : 0;
}

}  // namespace toolkit::qt
