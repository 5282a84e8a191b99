#include "serverlist/CorvaneClient.h"

#include "toolkit/Text.h"

namespace CorvaneClient {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): there is one list of servers
std::vector<std::shared_ptr<CorvaneServer>> Servers;

std::string Sanitize_Hostname(std::string_view host) {
  constexpr std::string_view scheme = "https://";
  constexpr std::string_view port = ":1701";
  std::string base(host);
  if (!toolkit::StartsWithIgnoringCase(base, scheme)) base.insert(0, scheme);
  if (!base.ends_with(port)) base += port;
  return base;
}

}  // namespace CorvaneClient
