#pragma once

#include <map>
#include <memory>

#include <QWidget>

#include "toolkit/Window.h"

namespace toolkit::qt {

/// A window on the screen, with a view for each of its controls.
class QtWindow final : public QWidget {
 public:
  explicit QtWindow(std::shared_ptr<Window> window);
  // The views must go before the controls that they show.
  ~QtWindow() override { delete content_; }

  [[nodiscard]] bool Shows(const Window& window) const { return window_.get() == &window; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LayOut();
  void PlaceControls();
  void OrderByTab();

  std::shared_ptr<Window> window_;
  QWidget* menus_ = nullptr;
  QWidget* content_;
  std::map<const Control*, QWidget*> views_;
  bool painted_ = false;
};

}  // namespace toolkit::qt
