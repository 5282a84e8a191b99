#include "toolkit/qt/SystemProxies.h"

#include <algorithm>
#include <string_view>

#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QUrl>

#include "toolkit/Text.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

std::string_view HostOf(std::string_view url) {
  url.remove_prefix(std::min(url.find("://") + 3, url.size()));
  url = url.substr(0, url.find_first_of("/?#"));
  url.remove_prefix(url.find('@') + 1);
  return url.starts_with('[') ? url.substr(1, url.find(']') - 1) : url.substr(0, url.find(':'));
}

bool IsThisMachine(std::string_view host) {
  if (EqualIgnoringCase(host, "localhost") || LowerCase(host).ends_with(".localhost")) return true;
  return QHostAddress(ToQt(host)).isLoopback();
}

}  // namespace

std::string ProxyFor(const std::string& url) {
  if (IsThisMachine(HostOf(url))) return {};
  const QNetworkProxyQuery query{QUrl(ToQt(url))};
  const auto proxies = QNetworkProxyFactory::systemProxyForQuery(query);
  if (proxies.isEmpty() || proxies.front().hostName().isEmpty()) return {};
  const QNetworkProxy& proxy = proxies.front();
  QUrl found;
  found.setScheme(proxy.type() == QNetworkProxy::Socks5Proxy ? "socks5h" : "http");
  found.setHost(proxy.hostName());
  found.setPort(proxy.port());
  found.setUserName(proxy.user());
  found.setPassword(proxy.password());
  return FromQt(found.toString(QUrl::FullyEncoded));
}

}  // namespace toolkit::qt
