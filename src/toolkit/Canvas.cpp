#include "toolkit/Canvas.h"

namespace toolkit {

Canvas& Canvas::Backdrop(std::shared_ptr<const Picture> picture) {
  backdrop_ = std::move(picture);
  Changed();
  return *this;
}

}  // namespace toolkit
