#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

/// Runs the target on one input. Aborts if a rule does not hold.
void FuzzOne(std::string_view input);

/// Aborts with the text `rule` unless it holds.
inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::cerr << "Does not hold: " << rule << '\n';
  std::abort();
}
