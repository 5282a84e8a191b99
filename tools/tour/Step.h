#pragma once

#include <functional>
#include <vector>

#include <QString>

#include "tour/Hands.h"

namespace tour {

/// Returns what does not hold yet, or an empty text once the condition is met.
using Condition = std::function<QString()>;

/// One step of the tour: its description, the user's inputs, and the conditions that must then be met.
struct Step {
  QString What;
  tour::Inputs Inputs;
  std::vector<Condition> Then;
  /// The name of the picture that is then taken, without suffix; empty: none.
  QString Picture{};
};
using Steps = std::vector<Step>;

}  // namespace tour
