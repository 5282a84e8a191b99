#pragma once

#include <memory>
#include <vector>

#include <QPixmap>

#include "toolkit/Graphics.h"

class QPainter;

namespace toolkit::qt {

/// Pictures as they were drawn last: decoded and scaled, so that drawing them again costs little. Those that nobody
/// owns any more, or that have not been drawn for long, go.
class DrawnPictures {
 public:
  /// `picture` in a size in pixels; empty if it cannot be decoded.
  [[nodiscard]] QPixmap Find(const std::shared_ptr<const Picture>& picture, QSize size);

 private:
  struct Drawn {
    std::weak_ptr<const toolkit::Picture> Picture;
    QSize Size;
    QPixmap Pixels;
  };
  // The one that was drawn last stands at the end.
  std::vector<Drawn> drawn_;
};

/// Draws on a widget, during its paint event.
class QtGraphics final : public Graphics {
 public:
  QtGraphics(QPainter& painter, QSize size, DrawnPictures& pictures);

  [[nodiscard]] int Width() const override { return size_.width(); }
  [[nodiscard]] int Height() const override { return size_.height(); }
  void DrawPicture(const std::shared_ptr<const Picture>& picture, Rect destination) override;
  void DrawRect(Rect place) override;

 private:
  QPainter& painter_;
  QSize size_;
  DrawnPictures& pictures_;
};

}  // namespace toolkit::qt
