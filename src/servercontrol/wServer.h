#pragma once

#include <map>
#include <memory>
#include <string>

#include "serverlist/CorvaneServer.h"
#include "service/ControlAPI.h"
#include "service/TessenServicesClient.h"
#include "toolkit/Listbox.h"
#include "toolkit/ProgressWheel.h"
#include "toolkit/PushButton.h"
#include "toolkit/TabPanel.h"
#include "toolkit/TextField.h"
#include "toolkit/Window.h"

/// The window of one server: its system information and its containers. Requests for both tabs are sent when it is
/// constructed.
class wServer final : public toolkit::Window {
 public:
  explicit wServer(std::shared_ptr<const CorvaneServer> server);

  toolkit::TabPanel tabs;
  toolkit::Listbox list_overview;
  toolkit::PushButton btn_overview_refresh;
  toolkit::PushButton btn_overview_restart;
  toolkit::PushButton btn_overview_webui;
  toolkit::Listbox list_containers;
  toolkit::PushButton btn_containers_refresh;
  toolkit::PushButton btn_containers_restart;
  toolkit::PushButton btn_containers_start;
  toolkit::PushButton btn_containers_stop;
  toolkit::PushButton btn_containers_logs;
  toolkit::TextField txt_containers_logs;
  toolkit::PushButton btn_overview_reload;
  toolkit::ProgressWheel overview_progress;
  toolkit::PushButton btn_containers_backup;

  TessenServicesClient info;
  TessenServicesClient restart;
  TessenServicesClient containers_list;
  TessenServicesClient containers_restart;
  TessenServicesClient containers_stop;
  TessenServicesClient containers_start;
  TessenServicesClient containers_logs;
  TessenServicesClient overview_reload;
  TessenServicesClient containers_backup;

 private:
  void BuildControls();
  void WireEvents();
  void WireClient(TessenServicesClient& client, void (wServer::*done)(),
                  void (wServer::*failed)(const toolkit::RuntimeException&));
  void WireContainerActions();
  void WireWait(TessenServicesClient& client);

  void btn_overview_refresh_Action();
  void btn_overview_restart_Action();
  void btn_overview_webui_Action();
  void btn_overview_reload_Action();
  void list_containers_Open();
  void list_containers_Change();
  void PressLogs();
  void btn_containers_refresh_Action();
  void btn_containers_logs_Action();

  void info_ButtonPressed();
  void info_Error(const toolkit::RuntimeException& err);
  void restart_ButtonPressed();
  void restart_Error(const toolkit::RuntimeException& err);
  void containers_list_ButtonPressed();
  void containers_list_Error(const toolkit::RuntimeException& err);
  void containers_logs_ButtonPressed();
  void containers_logs_Error(const toolkit::RuntimeException& err);
  void overview_reload_ButtonPressed();
  void overview_reload_Error(const toolkit::RuntimeException& err);

  void mOverview_refresh();
  void mOverview_restart();
  void mOverview_reload();
  void mContainers_refresh();
  void mContainers_logs();

  void Issue(TessenServicesClient& client, const ControlAPI::Call& call, const std::string& logCount = {});
  [[nodiscard]] std::string SubjectOf(const TessenServicesClient& client) const;
  void Tell(const TessenServicesClient& client, const std::string& text) const;
  void ShowStatusThenRefresh(const TessenServicesClient& client);
  void EndReload();

  /// The arguments of a request that names a container.
  struct Target {
    std::string Container;
    std::string LogCount;

    friend bool operator==(const Target&, const Target&) = default;
  };

  std::map<const TessenServicesClient*, Target> targets_;
  // Read at each request, never copied.
  std::shared_ptr<const CorvaneServer> server_;
};
