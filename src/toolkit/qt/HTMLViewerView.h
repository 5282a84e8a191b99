#pragma once

#include <map>
#include <memory>

#include <QTimer>

#include "toolkit/HTMLViewer.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/EditViews.h"
#include "toolkit/qt/PageDocument.h"
#include "toolkit/qt/PageFilter.h"
#include "toolkit/qt/PagePictures.h"

namespace toolkit::qt {

class HTMLViewerView final : public ViewOf<EditPage, HTMLViewer> {
 public:
  HTMLViewerView(HTMLViewer& viewer, QWidget& parent);
  ~HTMLViewerView() override;
  void Refresh() override;

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void ShowPage();
  void ShowDocument();
  void FollowPictures();
  void PictureArrived(std::size_t number, const QPixmap& picture);
  void TellError(int code, const std::string& description);
  void FollowLink(const PageLink& link, LinkTarget target);
  /// The link behind an address in the document, nullptr if there is none.
  [[nodiscard]] const PageLink* LinkOf(const QString& address) const;

  FilteredPage page_;
  std::unique_ptr<PageDocument> document_;
  std::unique_ptr<PagePictures> loading_;
  // Those that have come, by their numbers.
  std::map<std::size_t, QPixmap> pictures_;
  QTimer followPictures_;
  unsigned shownGeneration_ = 0;
  bool pagePending_ = false;
  QString middlePressed_;
};

}  // namespace toolkit::qt
