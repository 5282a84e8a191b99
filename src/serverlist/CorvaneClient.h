#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "serverlist/CorvaneServer.h"

namespace CorvaneClient {

/// Every server that was added in this run, in order of addition.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
extern std::vector<std::shared_ptr<CorvaneServer>> Servers;

/// The base URL of the panel service on `host`: "https://" in front and ":1701" behind, each unless it is there
/// already. The scheme may stand in capitals. Nothing else is looked at: no blanks are trimmed, no path is removed.
[[nodiscard]] std::string Sanitize_Hostname(std::string_view host);

/// What to type instead, as a sentence with a blank before it, if Sanitize_Hostname makes no address of a panel service
/// of `host`, since it holds more than a name or an address; empty if it does.
[[nodiscard]] std::string_view HintForHostname(std::string_view host);

}  // namespace CorvaneClient
