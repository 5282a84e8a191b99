#include "toolkit/http/TransferPool.h"

#include <algorithm>
#include <utility>

#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/http/Connections.h"

namespace toolkit::http {
namespace {

using namespace std::chrono_literals;

constexpr auto longestIdle = 60s;
constexpr auto longestFarewell = 2s;
constexpr auto step = 20ms;

/// A transfer that cannot be.
class Impossible final : public HTTPTransfer {
 public:
  Impossible(EventLoop& loop, std::string why, HTTPTransferEvents& events)
      : why_(std::move(why)), events_(events), alarm_(loop.MakeAlarm([this] { Tell(); })) {
    alarm_->Set(0ms);
  }
  void Abort() override { alarm_->Stop(); }

 private:
  void Tell() {
    const TransferFailure failure{.Fault = TransferFault::Other, .Host = "", .Port = 0, .Detail = why_};
    Platform::Current().Dispatch([&] { events_.Failed(failure); });
  }

  std::string why_;
  HTTPTransferEvents& events_;
  std::unique_ptr<Alarm> alarm_;
};

}  // namespace

/// What the program holds of an exchange.
class TransferPool::Held final : public HTTPTransfer {
 public:
  Held(TransferPool& pool, std::shared_ptr<Exchange> exchange) : pool_(pool), exchange_(std::move(exchange)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() override { exchange_->LetGo(); }

  void Abort() override {
    exchange_->LetGo();
    if (!exchange_->HasEnded()) pool_.Stop(*exchange_, TransferFault::Other);
  }

 private:
  TransferPool& pool_;  // while the exchange has not ended
  std::shared_ptr<Exchange> exchange_;
};

TransferPool::TransferPool(EventLoop& loop)
    : loop_(loop),
      delivery_(loop.MakeAlarm([this] { Deliver(); })),
      pulse_(loop.MakeAlarm([this] { CheckServers(); })),
      idle_(loop.MakeAlarm([this] { DropConnections(); })) {}

TransferPool::~TransferPool() {
  LetRequestsOut();
  for (const auto& exchange : exchanges_) {
    exchange->LetGo();
    if (exchange->HasEnded()) continue;
    connections_->Remove(*exchange);
    exchange->Fail(TransferFault::Other);
  }
}

std::unique_ptr<HTTPTransfer> TransferPool::Start(HTTPRequest request, const std::string& proxy,
                                                  HTTPTransferEvents& events) {
  try {
    return Begin(std::move(request), proxy, events);
  } catch (const RuntimeException& exception) {
    return std::make_unique<Impossible>(loop_, exception.Message(), events);
  }
}

std::unique_ptr<HTTPTransfer> TransferPool::Begin(HTTPRequest request, const std::string& proxy,
                                                  HTTPTransferEvents& events) {
  const Curl& curl = Curl::Load();
  const auto inactivityTimeout = request.InactivityTimeout;
  const auto exchange = std::make_shared<Exchange>(curl, std::move(request), proxy, authorities_, events);
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

// What has arrived while a handler kept the loop is looked at first.
void TransferPool::LimitSilence(Exchange& exchange, std::chrono::milliseconds time) {
  if (time <= 0ms) return;
  auto patience = loop_.MakeAlarm([this, &exchange] {
    const auto before = exchange.Progress();
    connections_->Work(0ms);
    const bool isSilent = exchange.Progress() == before && !exchange.IsHeldUp();
    if (isSilent && !exchange.HasEnded()) Stop(exchange, TransferFault::Inactive);
    Deliver();
  });
  exchange.LimitSilence(std::move(patience), time);
}

void TransferPool::Stop(Exchange& exchange, TransferFault fault) {
  connections_->Remove(exchange);
  exchange.Fail(fault);
  delivery_->Set(0ms);
}

void TransferPool::Deliver() {
  ++deliveries_;
  const auto exchanges = exchanges_;
  for (const auto& exchange : exchanges) {
    if (exchange->HasNews()) exchange->Deliver();
  }
  --deliveries_;
  const auto ended =
      std::erase_if(exchanges_, [](const auto& exchange) { return exchange->HasEnded() && !exchange->HasNews(); });
  if (ended == 0 || !exchanges_.empty()) return;
  pulse_->Stop();
  idle_->Set(longestIdle);
}

// A handler that waits, in a loop of its own, may have been called from within the connections.
void TransferPool::DropConnections() {
  if (deliveries_ > 0) {
    idle_->Set(longestIdle);
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

void TransferPool::LetRequestsOut() {
  const auto end = std::chrono::steady_clock::now() + longestFarewell;
  const auto isOut = [this](const auto& exchange) { return connections_->HasDelivered(*exchange); };
  while (!std::ranges::all_of(exchanges_, isOut) && std::chrono::steady_clock::now() < end) connections_->Work(step);
}

}  // namespace toolkit::http
