#include "panel/Figures.h"

#include <iomanip>
#include <sstream>

namespace panel {

std::string OneDecimal(double number) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << number;
  return text.str();
}

std::string ToGigabytes(std::uint64_t bytes) { return OneDecimal(static_cast<double>(bytes) / 1e9) + " GB"; }

}  // namespace panel
