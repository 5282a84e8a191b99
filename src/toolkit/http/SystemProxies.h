#pragma once

#include <memory>
#include <proxy.h>
#include <string>

#include "toolkit/http/Address.h"

namespace toolkit::http {

/// The proxies that the user's system asks for: by the settings of the desktop, of the machine or of the environment.
class SystemProxies {
 public:
  /// The proxy on the way to `address`, as a URL with the user name and password that the system gives. Empty if there
  /// is none, and always for this machine itself. Blocks for as long as the system takes to find out.
  [[nodiscard]] std::string For(const Address& address);

 private:
  std::unique_ptr<pxProxyFactory, decltype(&px_proxy_factory_free)> factory_{nullptr, px_proxy_factory_free};
};

}  // namespace toolkit::http
