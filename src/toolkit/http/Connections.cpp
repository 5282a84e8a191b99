#include "toolkit/http/Connections.h"

#include <utility>

#include "toolkit/Platform.h"

namespace toolkit::http {
namespace {

// The most reads in a row from one socket, before the loop handles others.
constexpr int mostReads = 32;

}  // namespace

Connections::Connections(const Curl& curl, EventLoop& loop, std::function<void()> moved)
    : curl_(curl),
      sockets_(loop, [this](int descriptor, Readiness readiness) { Act(descriptor, readiness); }),
      moved_(std::move(moved)),
      alarm_(loop.MakeAlarm([this] { Act(CURL_SOCKET_TIMEOUT, Readiness::None); })),
      multi_(curl.multi_init()) {
  curl_.multi_setopt(multi_, CURLMOPT_SOCKETFUNCTION, &WaitForSocket);
  curl_.multi_setopt(multi_, CURLMOPT_SOCKETDATA, this);
  curl_.multi_setopt(multi_, CURLMOPT_TIMERFUNCTION, &WaitForTime);
  curl_.multi_setopt(multi_, CURLMOPT_TIMERDATA, this);
}

Connections::~Connections() { curl_.multi_cleanup(multi_); }

void Connections::Add(Exchange& exchange) {
  exchange.OpenSocketsIn(sockets_);
  sockets_.RetireDeadOnes();
  curl_.multi_add_handle(multi_, exchange.Handle());
  int running = 0;
  curl_.multi_socket_action(multi_, CURL_SOCKET_TIMEOUT, 0, &running);
  EndFinished();
}

void Connections::Remove(Exchange& exchange) {
  curl_.multi_remove_handle(multi_, exchange.Handle());
  sockets_.Release(exchange.Handle());
}

bool Connections::HasDelivered(const Exchange& exchange) const {
  return exchange.HasWritten() && sockets_.HasDelivered(exchange.Handle());
}

void Connections::Work(std::chrono::milliseconds time) {
  int count = 0;
  curl_.multi_poll(multi_, nullptr, 0, static_cast<int>(time.count()), &count);
  curl_.multi_perform(multi_, &count);
  EndFinished();
}

int Connections::WaitForSocket(CURL* easy, curl_socket_t descriptor, int what, void* self, void* /*unused*/) {
  const auto readiness = what == CURL_POLL_REMOVE ? Readiness::None : static_cast<Readiness>(what);
  static_cast<Connections*>(self)->sockets_.WaitFor(easy, descriptor, readiness);
  return 0;
}

int Connections::WaitForTime(CURLM* /*multi*/, long milliseconds, void* self) {
  Alarm& alarm = *static_cast<Connections*>(self)->alarm_;
  if (milliseconds < 0) {
    alarm.Stop();
  } else {
    alarm.Set(std::chrono::milliseconds(milliseconds));
  }
  return 0;
}

void Connections::Act(int descriptor, Readiness readiness) {
  int running = 0;
  int reads = 0;
  do {
    curl_.multi_socket_action(multi_, descriptor, static_cast<int>(readiness), &running);
    readiness = Readiness::Reading;
  } while (++reads < mostReads && sockets_.HasInput(descriptor));
  EndFinished();
  moved_();
}

void Connections::EndFinished() {
  int left = 0;
  while (const CURLMsg* message = curl_.multi_info_read(multi_, &left)) {
    CURL* easy = message->easy_handle;
    const CURLcode code = message->data.result;  // NOLINT(cppcoreguidelines-pro-type-union-access): libcurl's interface
    Exchange* exchange = nullptr;
    curl_.easy_getinfo(easy, CURLINFO_PRIVATE, &exchange);
    if (exchange->MayConnectLater(code)) {
      ConnectLater(*exchange);
    } else {
      exchange->End(code);
      Remove(*exchange);
    }
  }
}

// Nothing of the request has been sent yet.
void Connections::ConnectLater(Exchange& exchange) {
  Remove(exchange);
  exchange.StartNextAttemptBy(Platform::Current().StartTimer(std::chrono::milliseconds(0), [this, &exchange] {
    Add(exchange);
    moved_();
  }));
}

}  // namespace toolkit::http
