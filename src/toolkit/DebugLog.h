#pragma once

#include <string_view>

namespace toolkit {

/// Writes a line for developers to standard error. Must not contain secrets.
void DebugLog(std::string_view line);

}  // namespace toolkit
