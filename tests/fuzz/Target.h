#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

/// One execution on one input. Ends the process if what must always hold does not.
void FuzzOne(std::string_view input);

/// Ends the process with `rule`, which did not hold.
inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::cerr << "Does not hold: " << rule << '\n';
  std::abort();
}
