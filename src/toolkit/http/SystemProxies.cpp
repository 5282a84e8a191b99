#include "toolkit/http/SystemProxies.h"

#include <arpa/inet.h>
#include <array>
#include <netinet/in.h>
#include <string_view>

#include "toolkit/Text.h"

namespace toolkit::http {
namespace {

bool IsThisMachine(const std::string& host) {
  if (EqualIgnoringCase(host, "localhost") || LowerCase(host).ends_with(".localhost")) return true;
  in_addr v4{};
  if (inet_pton(AF_INET, host.c_str(), &v4) == 1) return ntohl(v4.s_addr) >> 24U == IN_LOOPBACKNET;
  in6_addr v6{};
  return inet_pton(AF_INET6, host.c_str(), &v6) == 1 && IN6_IS_ADDR_LOOPBACK(&v6);
}

/// Converts a proxy from the system's notation to libcurl's; empty for a direct connection and for unsupported kinds.
std::string ForCurl(std::string_view proxy) {
  const std::size_t mark = proxy.find("://");
  if (mark == std::string_view::npos) return {};
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> schemes{
      {{"http", "http"}, {"socks", "socks5h"}, {"socks5", "socks5h"}}};
  for (const auto& [name, scheme] : schemes) {
    if (proxy.substr(0, mark) == name) return std::string(scheme).append(proxy.substr(mark));
  }
  return {};
}

}  // namespace

std::string SystemProxies::For(const Address& address) {
  if (!address.IsValid() || IsThisMachine(address.Host())) return {};
  if (!factory_) factory_.reset(px_proxy_factory_new());
  char** proxies = px_proxy_factory_get_proxies(factory_.get(), address.Text().c_str());
  if (proxies == nullptr) return {};
  std::string first = proxies[0] == nullptr ? std::string() : ForCurl(proxies[0]);
  px_proxy_factory_free_proxies(proxies);
  return first;
}

}  // namespace toolkit::http
