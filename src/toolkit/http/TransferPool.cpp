#include "toolkit/http/TransferPool.h"

#include <algorithm>
#include <utility>

#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/http/Connections.h"

namespace toolkit::http {
namespace {

using namespace std::chrono_literals;

constexpr auto longestFarewell = 2s;
constexpr auto step = 20ms;
// How often to check whether a handler still blocks an exchange whose time is over.
constexpr auto shortestLook = 100ms;

/// A transfer that could not be started.
class Impossible final : public HTTPTransfer {
 public:
  Impossible(const std::string& why, HTTPTransferEvents& events)
      : telling_(Platform::Current().StartTimer(0ms, [why, &events] {
          events.Failed({.Fault = TransferFault::Other, .Host = "", .Port = 0, .Detail = why});
        })) {}
  void Abort() override { telling_.reset(); }

 private:
  std::unique_ptr<PlatformTimer> telling_;
};

}  // namespace

/// The program's handle of an exchange.
class TransferPool::Held final : public HTTPTransfer {
 public:
  Held(TransferPool& pool, std::shared_ptr<Exchange> exchange) : pool_(pool), exchange_(std::move(exchange)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() override { exchange_->RemoveListener(); }

  void Abort() override {
    exchange_->RemoveListener();
    if (!exchange_->HasEnded()) pool_.Stop(*exchange_, TransferFault::Other);
  }

 private:
  TransferPool& pool_;  // only valid while the exchange has not ended
  std::shared_ptr<Exchange> exchange_;
};

TransferPool::TransferPool(EventLoop& loop)
    : loop_(loop),
      delivery_(loop.MakeAlarm([this] { Deliver(); })),
      pulse_(loop.MakeAlarm([this] { CheckServers(); })),
      idle_(loop.MakeAlarm([this] { DropConnections(); })) {}

TransferPool::~TransferPool() {
  SendPendingRequests();
  for (const auto& exchange : exchanges_) {
    exchange->RemoveListener();
    if (exchange->HasEnded()) continue;
    connections_->Remove(*exchange);
    exchange->Fail(TransferFault::Other);
  }
}

std::unique_ptr<HTTPTransfer> TransferPool::Start(HTTPRequest request, HTTPTransferEvents& events) {
  try {
    return Begin(std::move(request), events);
  } catch (const RuntimeException& exception) {
    return std::make_unique<Impossible>(exception.Message(), events);
  }
}

std::unique_ptr<HTTPTransfer> TransferPool::Begin(HTTPRequest request, HTTPTransferEvents& events) {
  const Curl& curl = Curl::Load();
  const auto inactivityTimeout = request.InactivityTimeout;
  const auto exchange = std::make_shared<Exchange>(curl, std::move(request), proxies_, authorities_, events);
  if (!connections_) connections_ = std::make_unique<Connections>(curl, loop_, [this] { Deliver(); });
  if (exchanges_.empty()) pulse_->Set(Sockets::pulse);
  idle_->Stop();
  exchanges_.push_back(exchange);
  if (exchange->IsPossible()) {
    LimitSilence(*exchange, inactivityTimeout);
    connections_->Add(*exchange);
  } else {
    exchange->Fail(TransferFault::BadURL);
  }
  const auto hasReplied = [](const auto& one) { return one->HasReplied(); };
  if (std::ranges::any_of(exchanges_, hasReplied)) delivery_->Set(0ms);
  return std::make_unique<Held>(*this, exchange);
}

void TransferPool::LimitSilence(Exchange& exchange, std::chrono::milliseconds time) {
  if (time <= 0ms) return;
  exchange.LimitSilence(Platform::Current().StartTimer(time, [this, &exchange] { EndIfSilent(exchange); }));
}

// First reads what has arrived while a handler blocked the loop.
void TransferPool::EndIfSilent(Exchange& exchange) {
  connections_->Work(0ms);
  const auto left = exchange.TimeLeft();
  if (!exchange.HasEnded()) {
    if (left > 0ms || exchange.IsHeldUp()) {
      LimitSilence(exchange, left > 0ms ? left : shortestLook);
    } else {
      Stop(exchange, TransferFault::Inactive);
    }
  }
  Deliver();
}

void TransferPool::Stop(Exchange& exchange, TransferFault fault) {
  connections_->Remove(exchange);
  exchange.Fail(fault);
  delivery_->Set(0ms);
}

// While a dialog is open, each exchange is queued with the other events: once for what has arrived, and once for its
// end.
void TransferPool::Deliver() {
  const auto exchanges = exchanges_;
  for (const auto& exchange : exchanges) {
    if (!exchange->BecomesDue()) continue;
    Platform::Current().WhenFree([this, exchange, isEnd = exchange->HasEnded()] {
      if (exchange->HasNews() && exchange->HasEnded() == isEnd) DeliverFrom(*exchange);
    });
  }
  ForgetEnded();
}

void TransferPool::DeliverFrom(Exchange& exchange) {
  ++deliveries_;
  exchange.Deliver();
  --deliveries_;
  ForgetEnded();
}

void TransferPool::ForgetEnded() {
  const auto ended = std::erase_if(exchanges_, [](const auto& one) { return one->HasEnded() && !one->HasNews(); });
  if (ended == 0 || !exchanges_.empty()) return;
  pulse_->Stop();
  idle_->Set(Sockets::longestIdle);
}

// A handler with a nested event loop may have been called from within the connections.
void TransferPool::DropConnections() {
  if (deliveries_ > 0) {
    idle_->Set(Sockets::longestIdle);
  } else {
    connections_.reset();
  }
}

void TransferPool::CheckServers() {
  for (const auto& exchange : exchanges_) {
    if (!exchange->HasEnded() && connections_->HasFallenSilent(*exchange)) {
      Stop(*exchange, TransferFault::NoLongerAnswers);
    }
  }
  pulse_->Set(Sockets::pulse);
}

void TransferPool::SendPendingRequests() {
  const auto end = std::chrono::steady_clock::now() + longestFarewell;
  const auto isOut = [this](const auto& exchange) { return connections_->HasDelivered(*exchange); };
  while (!std::ranges::all_of(exchanges_, isOut) && std::chrono::steady_clock::now() < end) connections_->Work(step);
}

}  // namespace toolkit::http
