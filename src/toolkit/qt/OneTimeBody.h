#pragma once

#include <string>

#include <QIODevice>

namespace toolkit::qt {

/// The body of a request, which can be read once and from its start to its end. Qt's network stack sends a request
/// again on its own when a connection breaks, but not one whose body it cannot read a second time. That is what keeps
/// an action from reaching a server twice.
class OneTimeBody final : public QIODevice {
 public:
  explicit OneTimeBody(std::string body);

  [[nodiscard]] bool isSequential() const override { return true; }
  [[nodiscard]] qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 maxSize) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  std::string body_;
  std::size_t position_ = 0;
};

}  // namespace toolkit::qt
