#include "support/MemoryTransfer.h"

#include <string_view>

#include <QPointer>
#include <QTimer>

#include "toolkit/HTTPStatus.h"
#include "toolkit/Platform.h"

namespace bench {
namespace {

constexpr std::size_t partSize = std::size_t{64} * 1024;

}  // namespace

MemoryTransfer::MemoryTransfer(std::shared_ptr<const std::string> body, toolkit::HTTPTransferEvents& events)
    : body_(std::move(body)), events_(events) {
  QTimer::singleShot(0, this, [this] { toolkit::Platform::Current().Dispatch([this] { Deliver(); }); });
}

// Each event may abort the transfer or destroy this object.
void MemoryTransfer::Deliver() {
  const QPointer<MemoryTransfer> alive(this);
  const auto body = body_;
  if (isAborted_) return;
  events_.HeadersReceived(toolkit::HTTPStatus::ok, {}, body->size());
  for (std::size_t place = 0; alive && !isAborted_ && place < body->size(); place += partSize) {
    events_.BodyReceived(std::string_view(*body).substr(place, partSize));
  }
  if (alive && !isAborted_) events_.Finished();
}

}  // namespace bench
