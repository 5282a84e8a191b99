#pragma once

#include <memory>
#include <proxy.h>
#include <string>

#include "toolkit/http/Address.h"

namespace toolkit::http {

/// The proxies that the system prescribes, by the settings of the desktop, the machine or the environment.
class SystemProxies {
 public:
  /// The proxy for `address`, as a URL with the user name and password from the settings. Empty for a direct
  /// connection, and always for this machine itself. Blocks until the system has answered.
  [[nodiscard]] std::string For(const Address& address);

 private:
  std::unique_ptr<pxProxyFactory, decltype(&px_proxy_factory_free)> factory_{nullptr, px_proxy_factory_free};
};

}  // namespace toolkit::http
