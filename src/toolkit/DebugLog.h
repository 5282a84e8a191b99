#pragma once

#include <string_view>

namespace toolkit {

/// Writes a line for developers to the program's standard error output. Never anything secret.
void DebugLog(std::string_view line);

}  // namespace toolkit
