#pragma once

#include <memory>

#include <QMap>
#include <QTimer>

#include "toolkit/HTMLViewer.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/EditViews.h"
#include "toolkit/qt/PageFilter.h"
#include "toolkit/qt/PagePictures.h"

namespace toolkit::qt {

class HTMLViewerView final : public ViewOf<EditPage, HTMLViewer> {
 public:
  HTMLViewerView(HTMLViewer& viewer, QWidget& parent);
  void Refresh() override;

  /// The only door to what a page refers to.
  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void ShowPage();
  void ShowDocument();
  void LayOutPictures();
  void FollowLink(const QString& address, bool isElsewhere);
  /// The link behind an address in the document, nullptr if there is none.
  [[nodiscard]] const PageLink* LinkOf(const QString& address) const;

  FilteredPage page_;
  std::unique_ptr<PagePictures> loading_;
  // Those that have come, by their names in the document, and those of them that wait to be laid out.
  QMap<QString, QPixmap> pictures_;
  QStringList waiting_;
  QTimer showPage_;
  QTimer layOut_;
  unsigned shownGeneration_ = 0;
};

}  // namespace toolkit::qt
