#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>

#include "servercontrol/wServer.h"
#include "tests/support/HandPlatform.h"

using Texts = std::vector<std::string>;
using ServerButton = toolkit::PushButton wServer::*;

/// All calls by their paths, with the buttons that issue them.
inline const std::vector<std::pair<std::string, ServerButton>> calls{
    {"containers/restart", &wServer::btn_containers_restart}, {"containers/start", &wServer::btn_containers_start},
    {"containers/stop", &wServer::btn_containers_stop},       {"containers/backup", &wServer::btn_containers_backup},
    {"containers/logs", &wServer::btn_containers_logs},       {"containers/list", &wServer::btn_containers_refresh},
    {"system/information", &wServer::btn_overview_refresh},   {"system/reboot", &wServer::btn_overview_restart},
    {"system/reload", &wServer::btn_overview_reload},
};

inline bool NamesContainer(const std::string& path) {
  return path.starts_with("containers") && path != "containers/list";
}

inline Texts RowsOf(const toolkit::Listbox& list) {
  Texts rows;
  for (int row = 0; row < list.ListCount(); ++row) rows.push_back(list.RowText(row));
  return rows;
}

/// An open server window, which has sent the requests for both its tabs.
struct ServerFixture : testing::Test {
  ServerFixture() { OpenAgain(); }

  void OpenAgain() {
    window = std::make_shared<wServer>(server);
    window->Show();
  }
  /// The last request for a path such as "system/reload".
  [[nodiscard]] SentRequest& Sent(const std::string& path) const {
    const auto found = std::find_if(platform.Requests.rbegin(), platform.Requests.rend(), [&](const auto& request) {
      return request->Request.URL.ends_with("/api/v1/" + path);
    });
    return found == platform.Requests.rend() ? throw std::runtime_error("nothing was sent to " + path) : **found;
  }
  /// Presses a button of either panel as the user would. The one for backups is invisible: only its event is raised.
  void Press(ServerButton which) const {
    const toolkit::PushButton& button = (*window).*which;
    window->tabs.Select(button.Panel());
    which == &wServer::btn_containers_backup ? button.Action() : button.Press();
  }
  /// Answers the last request for the containers, and selects one.
  void Fill(const Texts& names, int selected = -1) const {
    boost::json::object table;
    for (const auto& name : names)
      table[std::to_string(table.size())] = boost::json::array{name, "running", "Up", "hidden"};
    Sent("containers/list").Reply(200, R"({"containers":)" + boost::json::serialize(table) + "}");
    window->tabs.Select(2);
    window->list_containers.Select(selected);
  }
  /// Issues all calls, so that they run at the same time.
  void SendAll() const {
    Fill({"web", "db"}, 0);
    for (const auto& [path, button] : calls) Press(button);
  }
  /// Which of restart, start, stop, backup, logs and the count field are enabled, as in "100000".
  [[nodiscard]] std::string Usable() const {
    std::string usable;
    for (const auto& [path, button] : calls) {
      if (NamesContainer(path)) usable += ((*window).*button).Enabled() ? '1' : '0';
    }
    return usable + (window->txt_containers_logs.Enabled() ? '1' : '0');
  }
  [[nodiscard]] static boost::json::object Body(const SentRequest& request) {
    return boost::json::parse(request.Request.Body).as_object();
  }

  HandPlatform platform;
  std::shared_ptr<CorvaneServer> server = std::make_shared<CorvaneServer>(CorvaneServer{"srv", "", "pw", "", "amy"});
  std::shared_ptr<wServer> window;
};
