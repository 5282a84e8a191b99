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
  QtWindow(const QtWindow&) = delete;
  QtWindow& operator=(const QtWindow&) = delete;
  ~QtWindow() override;

  [[nodiscard]] bool Shows(const Window& window) const { return window_.get() == &window; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void PlaceControls();
  void OrderByTab();

  std::shared_ptr<Window> window_;
  std::map<const Control*, QWidget*> views_;
};

}  // namespace toolkit::qt
