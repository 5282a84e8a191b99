#include "toolkit/PushButton.h"

namespace toolkit {

PushButton& PushButton::Caption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
  return *this;
}

void PushButton::Press() const {
  if (Operable()) Action();
}

}  // namespace toolkit
