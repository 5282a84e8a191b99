#pragma once

#include <memory>
#include <vector>

#include "toolkit/HTTPTransfer.h"

class QNetworkAccessManager;

namespace toolkit::qt {

/// The network managers of the program, which keep connections and share them between sockets.
///
/// Qt's manager opens six connections to a host and lets further requests wait for one of them, possibly for minutes.
/// So no manager gets more than six requests at a time. Requests that do not check certificates have managers of their
/// own, so that no request that must check travels over a connection that was not checked.
class ConnectionPool {
 public:
  ConnectionPool();
  ~ConnectionPool();
  ConnectionPool(const ConnectionPool&) = delete;
  ConnectionPool& operator=(const ConnectionPool&) = delete;

  /// A manager with room for one more request, held for as long as that request runs.
  [[nodiscard]] std::shared_ptr<QNetworkAccessManager> Take(CertificateCheck certificates);

 private:
  struct Member {
    CertificateCheck certificates;
    std::shared_ptr<QNetworkAccessManager> manager;
  };
  std::vector<Member> members_;
};

}  // namespace toolkit::qt
