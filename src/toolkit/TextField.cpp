#include "toolkit/TextField.h"

namespace toolkit {

TextField& TextField::Text(std::string text) {
  text_ = std::move(text);
  Changed();
  return *this;
}

TextField& TextField::CueText(std::string cueText) {
  cueText_ = std::move(cueText);
  Changed();
  return *this;
}

TextField& TextField::Masked(Masking masking) {
  masking_ = masking;
  Changed();
  return *this;
}

void TextField::Type(std::string text) {
  if (Operable()) Text(std::move(text));
}

void TextField::PressEnter() const {
  if (Operable()) Enter();
}

}  // namespace toolkit
