#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QCursor>
#include <QLabel>
#include <QPointer>
#include <QWidget>

#include "toolkit/Window.h"
#include "toolkit/qt/QtGraphics.h"

namespace toolkit::qt {

/// Whether the key is Return, or Enter beside the digits.
[[nodiscard]] bool IsReturn(const QKeyEvent& event);

/// A window on the screen, with a view for each of its controls.
class QtWindow final : public QWidget, public WindowView {
 public:
  explicit QtWindow(std::shared_ptr<Window> window);
  QtWindow(const QtWindow&) = delete;
  QtWindow& operator=(const QtWindow&) = delete;
  ~QtWindow() override;

  [[nodiscard]] bool Shows(const Window& window) const { return window_.get() == &window; }
  /// Shows the window in front of the others. It takes the focus, unless it is Unasked and the user is typing into a
  /// field of another window of the program.
  void Appear();
  void ComeToFront();
  void Refresh() override;
  void RefreshBusy() override;
  /// The window that contains `view`; nullptr if there is none.
  [[nodiscard]] static std::shared_ptr<Window> Of(const QWidget& view);
  /// The number of pixels per point in the window of `view`.
  [[nodiscard]] static double ScaleOf(const QWidget& view);
  /// Whether Return may press the default button. In an Unasked window the user must have clicked or pressed Tab first.
  [[nodiscard]] bool HasDefault() const { return hasDefault_; }
  /// Enables or disables `view`. If that takes the focus from it, the focus moves to the previous widget, and returns
  /// when `view` is enabled again, unless the user has acted meanwhile.
  void Enable(QWidget& view, bool isEnabled);

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QScreen* TargetScreen() const;
  [[nodiscard]] double FindScale() const;
  [[nodiscard]] QSize Around(Size content) const;
  void ShowFrame();
  [[nodiscard]] int HeightOfTop() const;
  void LayOut();
  void PlaceControls();
  void PaintContent();
  void OrderByTab();
  void SetUpSubject();
  void UserActs(const QEvent& event);
  bool PressForKey(const QKeyEvent& event);
  bool ChangeTab(const QKeyEvent& event);

  std::shared_ptr<Window> window_;
  QWidget* menus_ = nullptr;
  QLabel subject_{this};
  QWidget* content_;
  std::map<const Control*, QWidget*> views_;
  DrawnPictures pictures_;
  // The cursors of child widgets that the busy cursor has replaced.
  std::vector<std::pair<QPointer<QWidget>, QCursor>> ownCursors_;
  // The widget that lost the focus when it was disabled, and the one that has it instead.
  QPointer<QWidget> disabled_;
  QPointer<QWidget> refuge_;
  double scale_ = 1;
  bool hasDefault_;
  bool painted_ = false;
  bool cannotPaint_ = false;
};

}  // namespace toolkit::qt
