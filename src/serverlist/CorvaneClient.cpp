#include "serverlist/CorvaneClient.h"

#include "toolkit/Text.h"

namespace CorvaneClient {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): there is one list of servers
std::vector<std::shared_ptr<CorvaneServer>> Servers;

namespace {

constexpr std::string_view scheme = "https://";
constexpr std::string_view port = ":1701";

}  // namespace

std::string Sanitize_Hostname(std::string_view host) {
  std::string base(host);
  if (!toolkit::StartsWithIgnoringCase(base, scheme)) base.insert(0, scheme);
  if (!base.ends_with(port)) base += port;
  return base;
}

void SendCall(TessenServicesClient& client, const ControlAPI::Call& call, std::string_view host,
              std::string_view username, std::string_view password) {
  client.Operator_Lookup("username", username);
  client.Operator_Lookup("password", password);
  client.PressButton(Sanitize_Hostname(host) + std::string(call.Path), call.Button);
}

std::string_view HintForHostname(std::string_view host) {
  if (toolkit::StartsWithIgnoringCase(host, scheme)) host.remove_prefix(scheme.size());
  if (host.ends_with(port)) host.remove_suffix(port.size());
  const bool isIPv6 = host.starts_with('[') && host.ends_with(']');
  const std::string_view strange = isIPv6 ? " /@" : " /\\?#@:\t\r\n";
  if (!host.empty() && host.find_first_of(strange) == std::string_view::npos) return {};
  return " Type the name or the address of the server alone: no blanks, no path, and no other scheme or port.";
}

}  // namespace CorvaneClient
