#pragma once

#include <memory>
#include <string>

#include <QObject>

#include "toolkit/HTTPTransfer.h"

namespace bench {

/// A transfer without a network: the reply is in memory and delivered in parts, as from a fast network.
class MemoryTransfer final : public QObject, public toolkit::HTTPTransfer {
 public:
  MemoryTransfer(std::shared_ptr<const std::string> body, toolkit::HTTPTransferEvents& events);
  void Abort() override { isAborted_ = true; }

 private:
  void Deliver();

  std::shared_ptr<const std::string> body_;
  toolkit::HTTPTransferEvents& events_;
  bool isAborted_ = false;
};

}  // namespace bench
