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

  /// Everything that Qt loads for a page is requested here.
  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void Follow() override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void ShowDocument();
  void LayOutPictures();
  void FollowLink(const QString& address, bool isElsewhere);
  /// The link that an address in the document stands for, nullptr if there is none.
  [[nodiscard]] const PageLink* LinkOf(const QString& address) const;

  FilteredPage page_;
  std::unique_ptr<PagePictures> loading_;
  // The pictures that have arrived, by their names in the document, and the names that are not laid out yet.
  QMap<QString, QPixmap> pictures_;
  QStringList waiting_;
  QTimer layOut_;
  unsigned shownGeneration_ = 0;
};

}  // namespace toolkit::qt
