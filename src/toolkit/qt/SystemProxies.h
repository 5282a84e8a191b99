#pragma once

#include <string>

namespace toolkit::qt {

/// The proxy that the user's system asks for on the way to `url`, as a URL with the user name and password that it
/// gives. Empty if there is none, and always for this machine itself.
[[nodiscard]] std::string ProxyFor(const std::string& url);

}  // namespace toolkit::qt
