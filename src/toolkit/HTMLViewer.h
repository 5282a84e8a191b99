#pragma once

#include <string>

#include "toolkit/Control.h"
#include "toolkit/FolderItem.h"

namespace toolkit {

/// Where a link in a page wants to be opened.
enum class LinkTarget { SamePlace, NewWindow };

/// Shows a page of HTML: text and pictures, no scripts, no forms, no frames. Pictures come from http, https and data
/// addresses while the user reads; nothing else is ever fetched, and no file is read. It does not browse: following a
/// link asks the program and changes nothing on show.
class HTMLViewer final : public ControlOf<HTMLViewer> {
 public:
  HTMLViewer() : ControlOf(FocusPolicy::Accepts) {}

  /// Asked before an address is followed, or with “about:blank” before LoadPage() shows a page; true refuses.
  Question<bool, const std::string&> CancelLoad;
  /// A link wants a new window. Returns the viewer that is to load it, nullptr for none.
  Question<HTMLViewer*> NewWindow;
  /// Something of the page could not be loaded: a code of the desktop's, and a description.
  Event<int, const std::string&> Error;

  /// Shows a page, in UTF-8, unless CancelLoad refuses it. Addresses relative to `relativeTo` would be those of files,
  /// so nothing comes from them.
  void LoadPage(std::string html, const FolderItem& relativeTo);
  [[nodiscard]] const std::string& Page() const { return page_; }
  /// Changes with every page.
  [[nodiscard]] unsigned Generation() const { return generation_; }

  /// Follows a link of the page as the user would: asks CancelLoad, here or in the viewer for the new window. Does
  /// nothing while the viewer is disabled or invisible.
  void Follow(const std::string& url, LinkTarget target);

 private:
  std::string page_;
  unsigned generation_ = 0;
};

}  // namespace toolkit
