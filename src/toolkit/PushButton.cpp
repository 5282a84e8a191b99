#include "toolkit/PushButton.h"

namespace toolkit {

PushButton& PushButton::Caption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
  return *this;
}

PushButton& PushButton::Key(std::string key) {
  key_ = std::move(key);
  Changed();
  return *this;
}

PushButton& PushButton::Role(ButtonRole role) {
  role_ = role;
  Changed();
  return *this;
}

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
