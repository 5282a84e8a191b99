#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// Opens `url` in the user's own browser. Where the desktop has none, a message box shows the address instead, so that
/// it can be copied.
void ShowURL(const std::string& url);

/// Whether the address of somebody unknown may be opened: one of a page or for mail, with http, https or mailto. Any
/// other could start any program.
[[nodiscard]] bool IsForBrowser(std::string_view url);

}  // namespace toolkit
