#include "toolkit/qt/OneTimeBody.h"

#include <algorithm>
#include <utility>

namespace toolkit::qt {

OneTimeBody::OneTimeBody(std::string body) : body_(std::move(body)) { open(ReadOnly | Unbuffered); }

qint64 OneTimeBody::bytesAvailable() const {
  return static_cast<qint64>(body_.size() - position_) + QIODevice::bytesAvailable();
}

qint64 OneTimeBody::readData(char* data, qint64 maxSize) {
  const std::size_t count = std::min(static_cast<std::size_t>(maxSize), body_.size() - position_);
  if (count == 0) return maxSize == 0 ? 0 : -1;
  std::copy_n(body_.data() + position_, count, data);
  position_ += count;
  if (position_ == body_.size()) {
    std::string().swap(body_);  // a large body is not kept while the reply is awaited
    position_ = 0;
  }
  return static_cast<qint64>(count);
}

qint64 OneTimeBody::writeData(const char* /*data*/, qint64 /*size*/) { return -1; }

}  // namespace toolkit::qt
