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

/// Lets `desktop` answer what a server window asks for at its opening from memory, as `service` answers it.
void AnswerOpening(Desktop& desktop, CurlConnection& curl, const PanelService& service);

/// The program's window of one server, opened on its containers, the second of them selected.
class ServerWindow {
 public:
  ServerWindow();
  ServerWindow(const ServerWindow&) = delete;
  ServerWindow& operator=(const ServerWindow&) = delete;
  ~ServerWindow() { window_->Close(); }

  [[nodiscard]] wServer& Window() { return *window_; }
  /// Asks for `count` log lines ("0" for all), and waits until the log window with `rows` rows is painted. Returns its
  /// list on the screen.
  QAbstractItemView& OpenLog(const std::string& count, int rows);

 private:
  std::shared_ptr<wServer> window_;
};

/// Closes the window that was opened last, and waits until nothing is left of it.
void CloseLastWindow();

}  // namespace bench
