#include "toolkit/qt/QtTransfer.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QSslConfiguration>
#include <QThread>

#include "toolkit/Platform.h"
#include "toolkit/qt/ConnectionPool.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr int portOfHTTPS = 443;
constexpr int portOfHTTP = 80;
// Qt's network thread may run ahead of the reader by this many bytes, so that a large body does not pile up there.
constexpr qint64 mostUnread = qint64{1} << 20U;
// Longer than Qt's network thread takes to ask for a body that goes out on a kept connection.
constexpr std::chrono::microseconds bodyAskedWithin{200};

QNetworkRequest MakeRequest(const QUrl& url, const HTTPRequest& request) {
  QNetworkRequest made(url);
  made.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  made.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  made.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  made.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  made.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  made.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
  made.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  made.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  made.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Corvane"));
  // Qt would ask for compressed replies, and what it unpacks has another length than the one announced.
  made.setRawHeader("Accept-Encoding", "identity");
  for (const auto& [name, value] : request.Headers) {
    made.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  if (request.Certificates == CertificateCheck::Skipped) {
    QSslConfiguration tls = made.sslConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    made.setSslConfiguration(tls);
  }
  return made;
}

TransferFault FaultOf(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::HostNotFoundError:
      return TransferFault::NameNotFound;
    case QNetworkReply::ConnectionRefusedError:
      return TransferFault::Refused;
    case QNetworkReply::SslHandshakeFailedError:
      return TransferFault::TLSFailed;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ContentReSendError:
      return TransferFault::ClosedEarly;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::UnknownNetworkError:
      return TransferFault::Unreachable;
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolInvalidOperationError:
      return TransferFault::NotHTTP;
    default:
      break;
  }
  const bool isProxy = error >= QNetworkReply::ProxyConnectionRefusedError && error <= QNetworkReply::UnknownProxyError;
  return isProxy ? TransferFault::Proxy : TransferFault::Other;
}

/// Errors from 201 on are Qt's names for HTTP statuses: the reply is there, and whole.
bool IsStatusOnly(QNetworkReply::NetworkError error) {
  return error == QNetworkReply::NoError ||
         (error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ContentReSendError &&
          error != QNetworkReply::ProtocolFailure && error != QNetworkReply::ProtocolUnknownError);
}

/// Qt wants to act on these statuses itself, and takes it for an error that it cannot; the reply is there, and whole.
bool IsUnansweredStatus(QNetworkReply::NetworkError error, int status) {
  return (error == QNetworkReply::ProxyAuthenticationRequiredError && status == 407) ||
         (error == QNetworkReply::ContentReSendError && (status == 307 || status == 308));
}

/// OpenSSL's texts begin with error numbers and the names of its libraries: the reason follows the last "::".
QString WithoutNumbers(const QString& text) { return text.contains("::") ? text.section("::", -1) : text; }

}  // namespace

QtTransfer::QtTransfer(ConnectionPool& pool, HTTPRequest request, HTTPTransferEvents& events) : events_(events) {
  QUrl url(ToQt(request.URL), QUrl::StrictMode);
  url.setUserInfo({});  // Qt would answer a challenge with it
  url_ = url;
  const bool isHTTP = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
  if (url.isValid() && isHTTP && !url.host().isEmpty()) {
    Start(pool, url, std::move(request));
  } else {
    QTimer::singleShot(0, this, [this] { Fail(TransferFault::BadURL); });
  }
}

QtTransfer::~QtTransfer() {
  if (reply_ == nullptr) return;
  reply_->disconnect(this);
  reply_->abort();
  reply_->deleteLater();
}

void QtTransfer::Start(ConnectionPool& pool, const QUrl& url, HTTPRequest request) {
  manager_ = pool.Take(request.Certificates);
  QNetworkRequest made = MakeRequest(url, request);
  const std::uint64_t bodySize = request.Body.size();
  const bool hasBody = bodySize > 0 || request.Method == "POST" || request.Method == "PUT";
  if (hasBody) {
    made.setHeader(QNetworkRequest::ContentLengthHeader, static_cast<qulonglong>(bodySize));
    body_ = new OneTimeBody(std::move(request.Body));
  }
  // A HEAD under any other name would be waited on for a body that never comes.
  reply_ = request.Method == "HEAD"
               ? manager_->head(made)
               : manager_->sendCustomRequest(made, QByteArray::fromStdString(request.Method), body_);
  if (hasBody) {
    body_->setParent(reply_);
    QTimer::singleShot(0, this, [this] { HandOverBody(); });
  } else {
    reply_->setReadBufferSize(mostUnread);  // a file can begin to arrive at once
  }
  if (request.Certificates == CertificateCheck::Skipped) reply_->ignoreSslErrors();
  LimitTime(request);
  Listen(bodySize);
}

// The body is asked for from Qt's network thread. On a kept connection the question comes sooner than this thread could
// fall asleep and wake again, so it stays awake for it, and lets others run meanwhile.
void QtTransfer::HandOverBody() {
  const QPointer<QtTransfer> alive(this);
  const QDeadlineTimer patience(bodyAskedWithin, Qt::PreciseTimer);
  while (alive && body_ && body_->bytesAvailable() > 0 && !patience.hasExpired()) {
    QCoreApplication::sendPostedEvents(reply_, QEvent::MetaCall);
    QThread::yieldCurrentThread();
  }
}

void QtTransfer::LimitTime(const HTTPRequest& request) {
  connectTimer_.setSingleShot(true);
  connect(&connectTimer_, &QTimer::timeout, this, [this] { Fail(TransferFault::ConnectTimedOut); });
  connectTimer_.start(request.ConnectTimeout);

  if (request.InactivityTimeout <= std::chrono::milliseconds(0)) return;
  inactivityTimer_.setSingleShot(true);
  connect(&inactivityTimer_, &QTimer::timeout, this, [this] { Fail(TransferFault::Inactive); });
  inactivityTimer_.start(request.InactivityTimeout);
  const auto restart = [this] { inactivityTimer_.start(); };
  connect(reply_, &QNetworkReply::socketStartedConnecting, this, restart);
  connect(reply_, &QNetworkReply::encrypted, this, restart);
  connect(reply_, &QNetworkReply::requestSent, this, restart);
  connect(reply_, &QNetworkReply::uploadProgress, this, restart);
  connect(reply_, &QNetworkReply::metaDataChanged, this, restart);
  connect(reply_, &QNetworkReply::downloadProgress, this, restart);
}

void QtTransfer::Listen(std::uint64_t bodySize) {
  connect(reply_, &QNetworkReply::requestSent, this, [this] { connectTimer_.stop(); });
  connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { ReadHeaders(); });
  connect(reply_, &QIODevice::readyRead, this, [this] { ReadBody(); });
  connect(reply_, &QNetworkReply::finished, this, [this] { Finish(); });
  connect(reply_, &QNetworkReply::uploadProgress, this, [this, bodySize](qint64 sent, qint64 /*total*/) {
    if (sent <= 0) return;
    Platform::Current().Dispatch([&] { events_.BodySent(static_cast<std::uint64_t>(sent), bodySize); });
  });
}

void QtTransfer::ReadHeaders() {
  const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
  if (headersRead_ || !status.isValid()) return;
  headersRead_ = true;
  HTTPHeaders headers;
  for (const auto& [name, value] : reply_->rawHeaderPairs())
    headers.emplace_back(name.toStdString(), value.toStdString());
  std::optional<std::uint64_t> length;
  const QVariant announced = reply_->header(QNetworkRequest::ContentLengthHeader);
  if (announced.isValid()) length = announced.toULongLong();
  if (!length || *length >= static_cast<std::uint64_t>(mostUnread)) reply_->setReadBufferSize(mostUnread);
  Platform::Current().Dispatch([&] { events_.HeadersReceived(status.toInt(), std::move(headers), length); });
}

// Each step may end the transfer, and with it this object.
void QtTransfer::ReadBody() {
  const QPointer<QtTransfer> alive(this);
  ReadHeaders();
  while (alive && headersRead_) {
    const QByteArray bytes = TakeBytes();
    if (bytes.isEmpty()) return;
    Platform::Current().Dispatch([&] { events_.BodyReceived({bytes.data(), static_cast<std::size_t>(bytes.size())}); });
  }
}

// Qt does not count what arrives before its thread knows the limit. If the reading of that counted, Qt would let as
// much more pile up again and again. Without a limit on this side, reading does not count.
QByteArray QtTransfer::TakeBytes() {
  const qint64 limit = reply_->readBufferSize();
  const qint64 excess = reply_->bytesAvailable() - limit;
  if (limit == 0 || excess <= 0) return reply_->readAll();
  reply_->QNetworkReply::setReadBufferSize(0);
  QByteArray bytes = reply_->read(std::min(excess, limit));
  reply_->QNetworkReply::setReadBufferSize(limit);
  return bytes;
}

void QtTransfer::Finish() {
  connectTimer_.stop();
  inactivityTimer_.stop();
  const auto error = reply_->error();
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (!IsStatusOnly(error) && !IsUnansweredStatus(error, status)) {
    Fail(FaultOf(error), WithoutNumbers(reply_->errorString()));
    return;
  }
  const QPointer<QtTransfer> alive(this);
  ReadBody();
  if (!alive) return;
  if (headersRead_) {
    Platform::Current().Dispatch([this] { events_.Finished(); });
  } else {
    Fail(TransferFault::ClosedEarly);
  }
}

void QtTransfer::Fail(TransferFault fault, const QString& detail) {
  TransferFailure failure;
  failure.Fault = fault;
  failure.Host = FromQt(url_.host());
  failure.Port = url_.port(url_.scheme() == QLatin1String("https") ? portOfHTTPS : portOfHTTP);
  failure.Detail = FromQt(detail);
  Platform::Current().Dispatch([&] { events_.Failed(failure); });
}

}  // namespace toolkit::qt
