#pragma once

#include <string>
#include <vector>

#include <QString>

#include "toolkit/HTMLViewer.h"

namespace toolkit::qt {

struct PageLink {
  std::string URL;
  LinkTarget Target = LinkTarget::SamePlace;
};

/// A page that is safe to show, whoever wrote it. It refers to nothing outside of itself: links and pictures are
/// numbers.
struct FilteredPage {
  /// HTML in which links go to "link:0", "link:1" and so on, and pictures are called "picture:0" and so on.
  QString HTML;
  /// The http, https and mailto addresses behind the links.
  std::vector<PageLink> Links;
  /// The addresses of the pictures as the page gives them, without duplicates.
  std::vector<std::string> Pictures;
  /// Whether the page has more pictures than are shown.
  bool LacksPictures = false;
  /// Whether the end of the page was left out.
  bool IsCut = false;
};

/// Keeps text and the tags that format it, closes every element, and leaves out the end of a page that QTextDocument
/// would lay out for too long. Pictures are shown at most `mostWidth` points wide.
[[nodiscard]] FilteredPage FilterPage(const QString& page, int mostWidth);

}  // namespace toolkit::qt
