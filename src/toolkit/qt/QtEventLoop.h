#pragma once

#include "toolkit/http/EventLoop.h"

namespace toolkit::qt {

/// Implements the event loop of HTTP transfers on Qt's.
class QtEventLoop final : public http::EventLoop {
 public:
  std::unique_ptr<http::DescriptorWatch> Watch(int descriptor, std::function<void(http::Readiness)> ready) override;
  std::unique_ptr<http::Alarm> MakeAlarm(std::function<void()> rings) override;
};

}  // namespace toolkit::qt
