#include "toolkit/ProgressBar.h"

namespace toolkit {

ProgressBar& ProgressBar::Maximum(int maximum) {
  maximum_ = maximum;
  Changed();
  return *this;
}

ProgressBar& ProgressBar::Value(int value) {
  value_ = value;
  Changed();
  return *this;
}

}  // namespace toolkit
