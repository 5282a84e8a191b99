#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/HTMLViewer.h"
#include "toolkit/qt/HTMLTokenizer.h"
#include "toolkit/qt/PageElements.h"

namespace toolkit::qt {

struct PageLink {
  std::string URL;
  LinkTarget Target = LinkTarget::SamePlace;
};

/// A page that can be shown whoever wrote it. It refers to nothing outside of it: links and pictures bear numbers.
struct FilteredPage {
  /// HTML in which links go to "link:0", "link:1" and so on, and pictures are called "picture:0" and so on.
  std::string HTML;
  /// The http, https and mailto addresses behind the links.
  std::vector<PageLink> Links;
  /// The addresses behind the pictures as the page gives them, each once.
  std::vector<std::string> Pictures;
  /// Whether the page has more pictures than are shown.
  bool LacksPictures = false;
};

/// Makes a page harmless: keeps text and the tags for its looks, and makes the tags well formed. Bounds all that would
/// take the text layout long: how deep elements stand in each other, how long paragraphs, lists and tables get, and how
/// many tags there are. What is beyond the last bound is cut off, and the page says so.
class PageFilter {
 public:
  /// Pictures are shown at most `mostWidth` points wide.
  PageFilter(std::string_view page, int mostWidth) : tokens_(page), mostWidth_(mostWidth) {}

  /// Filters the page. To be called once.
  [[nodiscard]] FilteredPage Run();

 private:
  struct OpenElement {
    PageElement element;
    /// The start tag that was written, to be written again where a long element is split.
    std::string tag;
    /// Of a table: its rows and columns. Of a row: its cells. Of a list: its items.
    int rows = 0;
    int columns = 0;
    int items = 0;
  };

  void Text(std::string_view text);
  void StartTag(const HTMLToken& tag);
  void EndTag(const HTMLToken& tag);
  void Picture(const HTMLToken& tag);
  [[nodiscard]] std::string LinkTag(const HTMLToken& tag);
  void OpenCell(const HTMLToken& tag);
  void OpenItem(const HTMLToken& tag);
  void Open(const PageElement& element, std::string_view attributes);
  void CloseImplied(const PageElement& element);
  void CloseDownTo(std::size_t depth);
  void SplitBlock();
  void Grow(OpenElement& table, int rows, int columns);
  [[nodiscard]] bool IsTooCostly() const;
  [[nodiscard]] bool MayOpen(ElementKind kind) const;
  [[nodiscard]] std::size_t FindOpen(ElementKind kind, ElementKind barrier, std::string_view shownAs = {}) const;

  HTMLTokenizer tokens_;
  int mostWidth_;
  FilteredPage page_;
  std::string styles_;
  std::vector<OpenElement> open_;
  // How many elements of a name were left out, since they stood too deep: as many end tags belong to them.
  std::map<std::string, int, std::less<>> leftOut_;
  std::map<std::string, std::size_t, std::less<>> pictureNumbers_;
  std::string baseTarget_;
  std::size_t blockText_ = 0;
  int blockTags_ = 0;
  // Whether nothing but blanks has come since the end of a block.
  bool followsBlock_ = false;
  int cost_ = 0;
  int lines_ = 0;
};

}  // namespace toolkit::qt
