#pragma once

#include <memory>
#include <string>

#include <QAbstractItemView>

#include "servercontrol/wServer.h"
#include "support/CurlConnection.h"
#include "support/Desktop.h"
#include "support/PanelService.h"

namespace bench {

/// A server as a user would have added it.
[[nodiscard]] std::shared_ptr<CorvaneServer> AddedServer();

/// Lets `desktop` answer the first requests of a server window from memory, with the replies of `service`.
void AnswerOpening(Desktop& desktop, CurlConnection& curl, const PanelService& service);

/// The program's window of one server, with its second container selected.
class ServerWindow {
 public:
  ServerWindow();
  ServerWindow(const ServerWindow&) = delete;
  ServerWindow& operator=(const ServerWindow&) = delete;
  ~ServerWindow() { window_->Close(); }

  [[nodiscard]] wServer& Window() { return *window_; }
  /// Requests `count` log lines ("0" for all), and waits until the log window with `rows` rows is painted. Returns its
  /// list.
  QAbstractItemView& OpenLog(const std::string& count, int rows);

 private:
  std::shared_ptr<wServer> window_;
};

/// Closes the window that was opened last, and waits until it is destroyed.
void CloseLastWindow();

}  // namespace bench
