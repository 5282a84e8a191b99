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

/// A page that can be shown whoever wrote it. It refers to nothing outside of it: links and pictures bear numbers.
struct FilteredPage {
  /// HTML in which links go to "link:0", "link:1" and so on, and pictures are called "picture:0" and so on.
  QString HTML;
  /// The http, https and mailto addresses behind the links.
  std::vector<PageLink> Links;
  /// The addresses behind the pictures as the page gives them, each once.
  std::vector<std::string> Pictures;
  /// Whether the page has more pictures than are shown.
  bool LacksPictures = false;
  /// Whether the page goes on beyond what is shown.
  bool IsCut = false;
};

/// Keeps text and the tags for its looks, well formed, and cuts off what would take Qt's document long. Pictures are
/// shown at most `mostWidth` points wide.
[[nodiscard]] FilteredPage FilterPage(const QString& page, int mostWidth);

}  // namespace toolkit::qt
