#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "serverlist/CorvaneServer.h"
#include "service/ControlAPI.h"
#include "service/TessenServicesClient.h"

namespace CorvaneClient {

/// Every server that was added since the program started, in order of addition.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
extern std::vector<std::shared_ptr<CorvaneServer>> Servers;

/// The base URL of the panel service on `host`: prefixed with "https://" (case-insensitive) and suffixed with ":1701",
/// unless already present. Nothing else is changed: blanks are not trimmed, a path is not removed,
/// nor is a login before an "@": never store or log the result.
[[nodiscard]] std::string Sanitize_Hostname(std::string_view host);

/// Sends `call` to the panel service on `host` with that login, and with what `client` stores else.
void SendCall(TessenServicesClient& client, const ControlAPI::Call& call, std::string_view host,
              std::string_view username, std::string_view password);

/// For error messages: a sentence, with a blank before it, that says what to type, if `host` contains more than a name
/// or an address, such as a path; empty otherwise. Not a validation.
[[nodiscard]] std::string_view HintForHostname(std::string_view host);

}  // namespace CorvaneClient
