#pragma once

#include <memory>

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/qt/OneTimeBody.h"

class QNetworkAccessManager;

namespace toolkit::qt {

class ConnectionPool;

/// One HTTP transfer on Qt's network stack, and the place where Qt's own ideas of retrying, redirecting, remembering
/// and authenticating are switched off.
class QtTransfer final : public QObject, public HTTPTransfer {
 public:
  QtTransfer(ConnectionPool& pool, HTTPRequest request, HTTPTransferEvents& events);
  ~QtTransfer() override;

 private:
  void Start(ConnectionPool& pool, const QUrl& url, HTTPRequest request);
  void HandOverBody();
  void LimitTime(const HTTPRequest& request);
  void Listen(std::uint64_t bodySize);
  void ReadHeaders();
  void ReadBody();
  [[nodiscard]] QByteArray TakeBytes();
  void Finish();
  void Fail(TransferFault fault, const QString& detail = {});

  HTTPTransferEvents& events_;
  std::shared_ptr<QNetworkAccessManager> manager_;
  QNetworkReply* reply_ = nullptr;
  QPointer<OneTimeBody> body_;
  QTimer connectTimer_;
  QTimer inactivityTimer_;
  QUrl url_;
  bool headersRead_ = false;
};

}  // namespace toolkit::qt
