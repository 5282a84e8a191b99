#include "toolkit/qt/SystemProxies.h"

#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QUrl>

#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

bool IsThisMachine(const QString& host) {
  const bool isLocalName = host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost"));
  return isLocalName || QHostAddress(host).isLoopback();
}

}  // namespace

std::string ProxyFor(const std::string& url) {
  const QUrl target(ToQt(url));
  if (target.host().isEmpty() || IsThisMachine(target.host())) return {};
  const auto proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(target));
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
