#include "toolkit/qt/QtEventLoop.h"

#include <utility>

#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

namespace toolkit::qt {
namespace {

using http::Readiness;

/// Deferred, since the object may be the caller.
struct DeleteLater {
  void operator()(QObject* object) const {
    object->disconnect();
    object->deleteLater();
  }
};
template <typename Object>
using Own = std::unique_ptr<Object, DeleteLater>;

bool Includes(Readiness all, Readiness one) { return (static_cast<unsigned>(all) & static_cast<unsigned>(one)) != 0; }

class QtDescriptorWatch final : public http::DescriptorWatch {
 public:
  QtDescriptorWatch(int descriptor, const std::function<void(Readiness)>& ready)
      : reading_(Notifier(descriptor, QSocketNotifier::Read, ready, Readiness::Reading)),
        writing_(Notifier(descriptor, QSocketNotifier::Write, ready, Readiness::Writing)) {}
  QtDescriptorWatch(const QtDescriptorWatch&) = delete;
  QtDescriptorWatch& operator=(const QtDescriptorWatch&) = delete;
  ~QtDescriptorWatch() override { QtDescriptorWatch::WaitFor(Readiness::None); }

  void WaitFor(Readiness readiness) override {
    reading_->setEnabled(Includes(readiness, Readiness::Reading));
    writing_->setEnabled(Includes(readiness, Readiness::Writing));
  }

 private:
  static Own<QSocketNotifier> Notifier(int descriptor, QSocketNotifier::Type type,
                                       const std::function<void(Readiness)>& ready, Readiness readiness) {
    Own<QSocketNotifier> notifier(new QSocketNotifier(descriptor, type));
    notifier->setEnabled(false);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [ready, readiness] { ready(readiness); });
    return notifier;
  }

  Own<QSocketNotifier> reading_;
  Own<QSocketNotifier> writing_;
};

class QtAlarm final : public http::Alarm {
 public:
  explicit QtAlarm(std::function<void()> rings) : timer_(new QTimer) {
    timer_->setSingleShot(true);
    QObject::connect(timer_.get(), &QTimer::timeout, [rings = std::move(rings)] { rings(); });
  }
  QtAlarm(const QtAlarm&) = delete;
  QtAlarm& operator=(const QtAlarm&) = delete;
  ~QtAlarm() override { timer_->stop(); }

  void Set(std::chrono::milliseconds time) override { timer_->start(time); }
  void Stop() override { timer_->stop(); }

 private:
  Own<QTimer> timer_;
};

}  // namespace

std::unique_ptr<http::DescriptorWatch> QtEventLoop::Watch(int descriptor, std::function<void(http::Readiness)> ready) {
  return std::make_unique<QtDescriptorWatch>(descriptor, ready);
}

std::unique_ptr<http::Alarm> QtEventLoop::MakeAlarm(std::function<void()> rings) {
  return std::make_unique<QtAlarm>(std::move(rings));
}

}  // namespace toolkit::qt
