#include "toolkit/Label.h"

namespace toolkit {

Label& Label::Text(std::string text) {
  text_ = std::move(text);
  Changed();
  return *this;
}

Label& Label::TextAlign(Alignment alignment) {
  alignment_ = alignment;
  Changed();
  return *this;
}

Label& Label::Font(LabelFont font) {
  font_ = font;
  Changed();
  return *this;
}

Label& Label::Lines(LabelLines lines) {
  lines_ = lines;
  Changed();
  return *this;
}

Label& Label::Ground(LabelGround ground) {
  ground_ = ground;
  Changed();
  return *this;
}

}  // namespace toolkit
