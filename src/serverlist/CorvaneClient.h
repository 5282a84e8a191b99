#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "serverlist/CorvaneServer.h"

namespace CorvaneClient {

/// Every server that was added since the program started, in order of addition.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
extern std::vector<std::shared_ptr<CorvaneServer>> Servers;

/// The base URL of the panel service on `host`: prefixed with "https://" (case-insensitive) and suffixed with ":1701",
/// unless already present. Nothing else is changed: blanks are not trimmed, a path is not removed.
[[nodiscard]] std::string Sanitize_Hostname(std::string_view host);

/// What to type instead, as a sentence with a blank before it, if Sanitize_Hostname makes no address of a panel service
/// of `host`, since it holds more than a name or an address; empty if it does.
[[nodiscard]] std::string_view HintForHostname(std::string_view host);

}  // namespace CorvaneClient
