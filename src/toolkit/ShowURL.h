#pragma once

#include <string>

namespace toolkit {

/// Opens `url` in the user's own browser. Where the desktop has none, a message box shows the address instead, so that
/// it can be copied.
void ShowURL(const std::string& url);

}  // namespace toolkit
