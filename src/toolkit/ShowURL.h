#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// Opens `url` in the user's browser. If there is none, a message box shows the address, so that it can be copied.
void ShowURL(const std::string& url);

/// Whether an address of untrusted origin may be opened: only with the schemes http, https and mailto. Others could
/// start any program.
[[nodiscard]] bool IsForBrowser(std::string_view url);

}  // namespace toolkit
