#include "toolkit/PushButton.h"

namespace toolkit {

std::string PushButton::AccessibleName() const {
  std::string name;
  for (std::size_t index = 0; index < caption_.size(); ++index) {
    if (caption_[index] == '&') ++index;
    if (index < caption_.size()) name += caption_[index];
  }
  return name;
}

void PushButton::Press() const {
  if (Operable()) Action();
}

}  // namespace toolkit
