#include "toolkit/qt/ConnectionPool.h"

#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>

namespace toolkit::qt {
namespace {

constexpr long mostRequests = 6;

/// The proxies that the user's system asks for, but none to reach this machine itself.
class SystemProxies final : public QNetworkProxyFactory {
 public:
  QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
    const QString host = query.peerHostName();
    const bool isLocalName = host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost"));
    if (isLocalName || QHostAddress(host).isLoopback()) return {QNetworkProxy::NoProxy};
    return systemProxyForQuery(query);
  }
};

}  // namespace

// A request crosses several times between this thread and Qt's own for the network, whose event loop need not be
// GLib's: the plain one takes less time.
ConnectionPool::ConnectionPool() { qputenv("QT_NO_THREADED_GLIB", "1"); }
ConnectionPool::~ConnectionPool() = default;

std::shared_ptr<QNetworkAccessManager> ConnectionPool::Take(CertificateCheck certificates) {
  for (const Member& member : members_) {
    const bool hasRoom = member.manager.use_count() - 1 < mostRequests;
    if (member.certificates == certificates && hasRoom) return member.manager;
  }
  auto manager = std::make_shared<QNetworkAccessManager>();
  manager->setProxyFactory(new SystemProxies);  // owned by the manager
  members_.push_back({certificates, manager});
  return manager;
}

}  // namespace toolkit::qt
