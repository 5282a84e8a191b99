#include "toolkit/DebugLog.h"

#include <iostream>

namespace toolkit {

void DebugLog(std::string_view line) { std::clog << line << '\n'; }

}  // namespace toolkit
