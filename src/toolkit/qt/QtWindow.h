#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QCursor>
#include <QPointer>
#include <QWidget>

#include "toolkit/Window.h"
#include "toolkit/qt/QtGraphics.h"

namespace toolkit::qt {

/// A window on the screen, with a view for each of its controls.
class QtWindow final : public QWidget, public WindowView {
 public:
  explicit QtWindow(std::shared_ptr<Window> window);
  QtWindow(const QtWindow&) = delete;
  QtWindow& operator=(const QtWindow&) = delete;
  ~QtWindow() override;

  [[nodiscard]] bool Shows(const Window& window) const { return window_.get() == &window; }
  /// Puts the window on the screen, in front of the others. It gets the keyboard, unless nobody asked for it and the
  /// user is typing into a field of another window of the program.
  void Appear();
  void ComeToFront();
  void Refresh() override;
  void RefreshBusy() override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowFrame();
  void LayOut();
  void PlaceControls();
  void PaintContent();
  void OrderByTab();

  std::shared_ptr<Window> window_;
  QWidget* menus_ = nullptr;
  QWidget* content_;
  std::map<const Control*, QWidget*> views_;
  DrawnPictures pictures_;
  // The pointers that parts of the window have of their own, while all show that it is busy.
  std::vector<std::pair<QPointer<QWidget>, QCursor>> ownCursors_;
  bool painted_ = false;
  bool cannotPaint_ = false;
};

}  // namespace toolkit::qt
