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

}  // namespace toolkit
