#include "toolkit/qt/PageFilter.h"

#include <algorithm>
#include <utility>

#include "toolkit/ShowURL.h"
#include "toolkit/Text.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/PageStyles.h"

namespace toolkit::qt {
namespace {

// What a page may have at most. The text layout takes 10 to 20 µs for a tag, several times that for a cell or a
// picture, and for items of a list and pieces of a paragraph the longer the more there are of them.
constexpr int mostCost = 30'000;
constexpr int costOfCell = 6;
constexpr int costOfPicture = 5;
constexpr int linesPerCost = 5;
constexpr std::size_t mostPictures = 200;
constexpr std::size_t longestPicture = 6'000'000;
constexpr std::size_t mostInBlock = 5'000;
constexpr int mostTagsInBlock = 200;
constexpr int mostItems = 500;
constexpr int mostColumns = 50;
constexpr int mostRowsOfCell = 20;
constexpr int tallestPicture = 4000;
constexpr int tallestWithoutWidth = 300;

constexpr std::size_t mostDepth = 64;
constexpr std::pair<ElementKind, std::ptrdiff_t> mostOfKind[] = {
    {ElementKind::Inline, 32}, {ElementKind::List, 16}, {ElementKind::Table, 4}};

constexpr std::size_t none = std::string_view::npos;
constexpr const char* cutNotice = "<p><i>The rest of this page is not shown.</i></p>";

/// An address without what a browser leaves out of it.
std::string CleanAddress(std::string_view address) {
  std::string clean(Trim(address));
  std::erase_if(clean, [](char character) { return static_cast<unsigned char>(character) < 0x20; });
  return clean;
}

LinkTarget TargetOf(std::string_view name) {
  constexpr std::string_view here[] = {"", "_self", "_top", "_parent"};
  const bool isHere = std::ranges::count(here, LowerCase(name)) > 0;
  return isHere ? LinkTarget::SamePlace : LinkTarget::NewWindow;
}

/// How much of `text` stands before the best place to split it within `most` bytes.
std::size_t SplitPlace(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text.size();
  const std::string_view window = text.substr(0, most);
  const std::size_t line = window.rfind('\n');
  const std::size_t blank = line != none ? line : window.rfind(' ');
  return blank != none ? blank + 1 : FirstCharacters(text, most).size();
}

}  // namespace

FilteredPage PageFilter::Run() {
  for (HTMLToken token = tokens_.Next(); token.Is != HTMLToken::Kind::End; token = tokens_.Next()) {
    if (token.Is == HTMLToken::Kind::Text) {
      Text(token.Text);
    } else if (token.Is == HTMLToken::Kind::StartTag) {
      StartTag(token);
    } else {
      EndTag(token);
    }
    if (IsTooCostly()) break;
  }
  CloseDownTo(0);
  if (IsTooCostly()) page_.HTML += cutNotice;
  page_.HTML.insert(0, "<style>" + styles_ + "</style>");
  return std::move(page_);
}

void PageFilter::Text(std::string_view text) {
  // The body may begin behind the blanks.
  if (page_.HTML.empty()) text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  while (!text.empty() && !IsTooCostly()) {
    const std::size_t most = std::max<std::size_t>(mostInBlock - std::min(blockText_, mostInBlock), 1);
    const std::string_view piece = text.substr(0, SplitPlace(text, most));
    text.remove_prefix(piece.size());
    page_.HTML += ReplaceAll(piece, "<", "&lt;");
    followsBlock_ = followsBlock_ && Trim(piece).empty();
    blockText_ += piece.size();
    lines_ += static_cast<int>(std::ranges::count(piece, '\n'));
    if (blockText_ >= mostInBlock || !text.empty()) SplitBlock();
  }
}

void PageFilter::StartTag(const HTMLToken& tag) {
  const PageElement element = ElementOf(tag.Name);
  switch (element.Kind) {
    case ElementKind::Ignored:
      if (tag.Name == "base" && !tag.Attribute("target").empty()) baseTarget_ = tag.Attribute("target");
      break;
    case ElementKind::Hidden:
      tokens_.TakeContent(tag.Name);
      break;
    case ElementKind::StyleSheet:
      if (const std::string_view sheet = tokens_.TakeContent(tag.Name); styles_.empty()) {
        styles_ = HarmlessStyleSheet(sheet);
      }
      break;
    case ElementKind::Empty:
      Picture(tag);
      break;
    case ElementKind::Item:
      OpenItem(tag);
      break;
    case ElementKind::Row:
    case ElementKind::Cell:
      OpenCell(tag);
      break;
    default:
      Open(element, tag.Name == "a" ? LinkTag(tag) : HarmlessAttributes(tag));
  }
}

void PageFilter::Picture(const HTMLToken& tag) {
  ++cost_;
  if (tag.Name == "hr") CloseImplied({ElementKind::Block, "hr"});
  const bool splits = ++blockTags_ > mostTagsInBlock;
  if (splits) SplitBlock();
  if (tag.Name != "img") {
    if (!splits) page_.HTML.append("<").append(tag.Name).append(">");
    return;
  }
  const std::string address = CleanAddress(tag.Attribute("src"));
  if (address.empty() || address.size() > longestPicture) return;
  const bool isNew = !pictureNumbers_.contains(address);
  page_.LacksPictures = page_.LacksPictures || (isNew && page_.Pictures.size() == mostPictures);
  if (isNew && page_.Pictures.size() == mostPictures) return;
  if (isNew) page_.Pictures.push_back(address);
  const std::size_t number = pictureNumbers_.try_emplace(address, page_.Pictures.size() - 1).first->second;
  cost_ += costOfPicture;
  // Qt would take the picture into the block that ended before it. A space without width begins another one.
  if (std::exchange(followsBlock_, false)) page_.HTML += "&#8203;";
  page_.HTML.append("<img src=\"picture:").append(std::to_string(number)).append("\"");
  const int width = NumberIn(tag.Attribute("width"), 99'999);
  const int height = NumberIn(tag.Attribute("height"), width > 0 ? tallestPicture : tallestWithoutWidth);
  if (width > 0) page_.HTML.append(" width=").append(std::to_string(std::min(width, mostWidth_)));
  if (height > 0 && width <= mostWidth_) page_.HTML.append(" height=").append(std::to_string(height));
  page_.HTML.append(">");
}

std::string PageFilter::LinkTag(const HTMLToken& tag) {
  const std::string url = CleanAddress(tag.Attribute("href"));
  if (!IsForBrowser(url)) return HarmlessAttributes(tag);
  const std::string_view target = tag.Attribute("target");
  page_.Links.push_back({url, TargetOf(target.empty() ? baseTarget_ : target)});
  return HarmlessAttributes(tag).append(" href=\"link:").append(std::to_string(page_.Links.size() - 1)).append("\"");
}

// A list is split where it gets long, since each item counts those before it.
void PageFilter::OpenItem(const HTMLToken& tag) {
  PageElement element = ElementOf(tag.Name);
  CloseImplied(element);
  const std::size_t list = FindOpen(ElementKind::List, ElementKind::Cell);
  if (list == none) {
    Open({ElementKind::Block, "div"}, HarmlessAttributes(tag));
    return;
  }
  OpenElement& open = open_[list];
  if (++open.items % mostItems == 0) {
    const OpenElement copy = open;
    CloseDownTo(list);
    open_.push_back(copy);
    page_.HTML += copy.element.ShownAs == "ol" ? "<ol start=\"" + std::to_string(copy.items) + "\">" : copy.tag;
  }
  Open(element, HarmlessAttributes(tag));
}

// A table takes time for each place in its grid, whether or not there is a cell, and twice as long in another table.
void PageFilter::OpenCell(const HTMLToken& tag) {
  const std::size_t table = FindOpen(ElementKind::Table, ElementKind::Table);
  if (table == none) return;
  const PageElement element = ElementOf(tag.Name);
  CloseImplied(element);
  if (FindOpen(ElementKind::Row, ElementKind::Table) == none) {
    CloseDownTo(table + 1);
    Grow(open_[table], open_[table].rows + 1, open_[table].columns);
    Open({ElementKind::Row, "tr"}, element.Kind == ElementKind::Row ? HarmlessAttributes(tag) : "");
  }
  const std::size_t place = FindOpen(ElementKind::Row, ElementKind::Table);
  if (element.Kind == ElementKind::Row || place == none) return;
  CloseDownTo(place + 1);
  OpenElement& row = open_.back();
  const int columns = std::max(NumberIn(tag.Attribute("colspan"), mostColumns), 1);
  const int rows = std::max(NumberIn(tag.Attribute("rowspan"), mostRowsOfCell), 1);
  if (row.columns + columns > mostColumns) return;
  row.columns += columns;
  Grow(open_[table], open_[table].rows + rows - 1, std::max(open_[table].columns, row.columns));
  std::string attributes = HarmlessAttributes(tag);
  if (columns > 1) attributes.append(" colspan=").append(std::to_string(columns));
  if (rows > 1) attributes.append(" rowspan=").append(std::to_string(rows));
  Open(element, attributes);
}

void PageFilter::Grow(OpenElement& table, int rows, int columns) {
  int costOfPlace = costOfCell / 2;
  for (const OpenElement& open : open_) costOfPlace *= open.element.Kind == ElementKind::Table ? 2 : 1;
  cost_ += costOfPlace * (rows * columns - table.rows * table.columns);
  table.rows = rows;
  table.columns = columns;
}

void PageFilter::Open(const PageElement& element, std::string_view attributes) {
  CloseImplied(element);
  const bool isLateBody = element.ShownAs == "body" && !page_.HTML.empty();
  if (isLateBody) return;
  if (!MayOpen(element.Kind)) {
    ++leftOut_[std::string(element.ShownAs)];
    return;
  }
  const bool isInline = element.Kind == ElementKind::Inline;
  if (isInline && blockTags_ >= mostTagsInBlock) SplitBlock();
  blockTags_ = isInline ? blockTags_ + 1 : 0;
  if (!isInline) {
    blockText_ = 0;
    followsBlock_ = false;
  }
  ++cost_;
  std::string tag = "<";
  tag.append(element.ShownAs).append(attributes).append(">");
  page_.HTML += tag;
  open_.push_back({.element = element, .tag = std::move(tag)});
}

bool PageFilter::IsTooCostly() const { return cost_ + lines_ / linesPerCost > mostCost; }

bool PageFilter::MayOpen(ElementKind kind) const {
  if (open_.size() >= mostDepth) return false;
  return std::ranges::all_of(mostOfKind, [&](const auto& bound) {
    return bound.first != kind || std::ranges::count_if(open_, [&](const OpenElement& open) {
                                    return open.element.Kind == kind;
                                  }) < bound.second;
  });
}

// The end tags that HTML lets a writer leave out.
void PageFilter::CloseImplied(const PageElement& element) {
  std::size_t place = none;
  switch (element.Kind) {
    case ElementKind::Inline:
      if (element.ShownAs == "a") place = FindOpen(ElementKind::Inline, ElementKind::Cell, "a");
      break;
    case ElementKind::Block:
    case ElementKind::List:
    case ElementKind::Table:
      place = FindOpen(ElementKind::Block, ElementKind::Cell, "p");
      break;
    case ElementKind::Item:
      place = FindOpen(ElementKind::Item, ElementKind::List);
      break;
    case ElementKind::Row:
    case ElementKind::Cell:
      place = FindOpen(element.Kind, ElementKind::Table);
      break;
    default:
      break;
  }
  if (place != none) CloseDownTo(place);
}

void PageFilter::EndTag(const HTMLToken& tag) {
  const PageElement element = ElementOf(tag.Name);
  if (element.Kind < ElementKind::Inline || element.ShownAs == "body") return;
  if (const auto leftOut = leftOut_.find(element.ShownAs); leftOut != leftOut_.end() && leftOut->second > 0) {
    --leftOut->second;
    return;
  }
  const bool isOfTable = element.Kind >= ElementKind::Table;
  const std::size_t place = FindOpen(element.Kind, isOfTable ? ElementKind::Table : ElementKind::Cell, element.ShownAs);
  if (place != none) CloseDownTo(place);
}

/// The innermost element of that kind and name that stands in no other `barrier`; nothing if there is none.
std::size_t PageFilter::FindOpen(ElementKind kind, ElementKind barrier, std::string_view shownAs) const {
  for (std::size_t place = open_.size(); place-- > 0;) {
    const PageElement& element = open_[place].element;
    if (element.Kind == kind && (shownAs.empty() || element.ShownAs == shownAs)) return place;
    if (element.Kind == barrier) break;
  }
  return none;
}

void PageFilter::CloseDownTo(std::size_t depth) {
  while (open_.size() > depth) {
    const OpenElement& last = open_.back();
    page_.HTML.append("</").append(last.element.ShownAs).append(">");
    if (last.element.Kind != ElementKind::Inline) {
      blockText_ = 0;
      blockTags_ = 0;
      followsBlock_ = true;
    }
    open_.pop_back();
  }
}

// A paragraph takes the longer to lay out for each piece of it the more there is of it, so a long one becomes several.
void PageFilter::SplitBlock() {
  std::size_t container = open_.size();
  while (container > 0 && open_[container - 1].element.Kind == ElementKind::Inline) --container;
  std::vector<OpenElement> reopened(open_.begin() + static_cast<std::ptrdiff_t>(container), open_.end());
  const bool isInParagraph = container > 0 && open_[container - 1].element.ShownAs == "p";
  if (isInParagraph) {
    reopened.insert(reopened.begin(), open_[container - 1]);
    --container;
  }
  CloseDownTo(container);
  if (!isInParagraph) page_.HTML += "<div></div>";
  for (OpenElement& element : reopened) {
    ++cost_;
    page_.HTML += element.tag;
    open_.push_back(std::move(element));
  }
  blockText_ = 0;
  blockTags_ = static_cast<int>(reopened.size());
}

}  // namespace toolkit::qt
