#pragma once

#include <memory>
#include <vector>

#include <QPixmap>

#include "toolkit/Graphics.h"

class QPainter;

namespace toolkit::qt {

/// A cache of decoded and scaled pictures. It drops those without an owner and the least recently drawn ones.
class DrawnPictures {
 public:
  /// `picture` scaled to a size in pixels; empty if it cannot be decoded.
  [[nodiscard]] QPixmap Find(const std::shared_ptr<const Picture>& picture, QSize size);

 private:
  struct Drawn {
    std::weak_ptr<const toolkit::Picture> Picture;
    QSize Size;
    QPixmap Pixels;
  };
  // The most recently drawn one is the last.
  std::vector<Drawn> drawn_;
};

/// Draws on a widget during its paint event.
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
