#pragma once

#include <functional>
#include <vector>

#include <QString>

#include "tour/Hands.h"

namespace tour {

/// What must be seen; answers with what is wrong, or with nothing once it is as it must be.
using Condition = std::function<QString()>;

/// One step of the tour: what the user does, how, and what must then come true.
struct Step {
  QString What;
  tour::Inputs Inputs;
  std::vector<Condition> Then;
  /// The picture that is then taken, by the name of its file; empty: none.
  QString Picture{};
};
using Steps = std::vector<Step>;

}  // namespace tour
