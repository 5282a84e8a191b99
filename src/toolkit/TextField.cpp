#include "toolkit/TextField.h"

namespace toolkit {

void TextField::Type(std::string text) {
  if (Operable()) Text(std::move(text));
}

void TextField::PressEnter() const {
  if (Operable()) Enter();
}

}  // namespace toolkit
