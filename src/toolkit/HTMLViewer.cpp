#include "toolkit/HTMLViewer.h"

#include <utility>

namespace toolkit {

void HTMLViewer::LoadPage(std::string html, const FolderItem& /*relativeTo*/) {
  if (CancelLoad("about:blank")) return;
  page_ = std::move(html);
  ++generation_;
  Changed();
}

void HTMLViewer::Follow(const std::string& url, LinkTarget target) {
  if (!Operable()) return;
  const HTMLViewer* viewer = target == LinkTarget::SamePlace ? this : NewWindow();
  if (viewer != nullptr) viewer->CancelLoad(url);
}

}  // namespace toolkit
