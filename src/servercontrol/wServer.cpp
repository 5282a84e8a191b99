#include "servercontrol/wServer.h"

#include <array>
#include <utility>

#include "servercontrol/LogCount.h"
#include "servercontrol/wContainerLogs.h"
#include "serverlist/CorvaneClient.h"
#include "shell/MenuBar1.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/ShowURL.h"

using toolkit::allEdges;
using toolkit::MsgBox;
using toolkit::RuntimeException;
using toolkit::topLeft;

namespace {

enum class OnOwnContainer { Allowed, Refused };

/// A button that sends a call for the selected container, shows the service's answer, and reads the list again.
struct ContainerAction {
  toolkit::PushButton wServer::*Button = nullptr;
  TessenServicesClient wServer::*Client = nullptr;
  ControlAPI::Call Call;
  OnOwnContainer Rule = OnOwnContainer::Refused;
};

// clang-format off
constexpr std::array containerActions{
    ContainerAction{&wServer::btn_containers_start,   &wServer::containers_start,   ControlAPI::startContainer,   OnOwnContainer::Refused},
    ContainerAction{&wServer::btn_containers_stop,    &wServer::containers_stop,    ControlAPI::stopContainer,    OnOwnContainer::Refused},
    ContainerAction{&wServer::btn_containers_restart, &wServer::containers_restart, ControlAPI::restartContainer, OnOwnContainer::Allowed},
    ContainerAction{&wServer::btn_containers_backup,  &wServer::containers_backup,  ControlAPI::backUpContainer,  OnOwnContainer::Refused},
};
// clang-format on

/// The table under `key` in the reply of `client`; nullptr if it is missing or null.
const boost::json::object* TableOf(const TessenServicesClient& client, std::string_view key) {
  const toolkit::Variant& value = client.Operator_Lookup(key);
  if (!value.IsNil() && value.Object() == nullptr) {
    throw RuntimeException("The server's reply cannot be shown: its “" + std::string(key) + "” is no table.");
  }
  return value.Object();
}

std::string StatusOf(const TessenServicesClient& client) { return client.Operator_Lookup("status").Text(); }

/// The name and the address of a server, for the user.
std::string NameOf(const CorvaneServer& server) {
  if (server.System_Name.empty() || server.System_Name == server.Network_Hostname) return server.Network_Hostname;
  return server.System_Name + " (" + server.Network_Hostname + ")";
}

}  // namespace

wServer::wServer(std::shared_ptr<const CorvaneServer> server)
    : Window("Corvane - Server Control Panel", {800, 500}, {800, 500}, {32000, 32000}), server_(std::move(server)) {
  Subject(NameOf(*server_));
  BuildControls();
  WireEvents();
  OpenControls();
  mOverview_refresh();
  mContainers_refresh();
}

void wServer::BuildControls() {
  Menus(MenuBar1());
  // clang-format off
  //          tab control                 name                      left top width height  locks    order
  Add(            tabs,                   "tabs",                   { 20,  0, 760, 480}, allEdges, 0).Panels({"Overview", "Containers"}).AccessibleName("Sections");
  AddTo(tabs, 1,  list_overview,          "list_overview",          { 40, 70, 720, 390}, allEdges, 0).ColumnCount(2).ColumnWidths("200,*").Scrolling(toolkit::ScrollBars::Vertical).AccessibleName("System information");
  AddTo(tabs, 1,  btn_overview_refresh,   "btn_overview_refresh",   { 40, 38, 160,  20}, topLeft,  1).Caption("Refresh Information").Key("F5");
  AddTo(tabs, 1,  btn_overview_restart,   "btn_overview_restart",   {635, 38, 125,  20}, topLeft,  2).Caption("Reboot Server");
  AddTo(tabs, 1,  btn_overview_webui,     "btn_overview_webui",     {212, 38, 125,  20}, topLeft,  3).Caption("Open Web Panel");
  AddTo(tabs, 2,  list_containers,        "list_containers",        { 40, 70, 720, 390}, allEdges, 0).ColumnCount(3).ColumnWidths("200, 100, 200, 200, 100, 100, 200").HasHeading(true).AccessibleName("Containers");
  AddTo(tabs, 2,  btn_containers_refresh, "btn_containers_refresh", { 40, 38, 160,  20}, topLeft,  1).Caption("Refresh Containers").Key("F5");
  AddTo(tabs, 2,  btn_containers_restart, "btn_containers_restart", {212, 38,  80,  20}, topLeft,  2).Caption("Restart").Enabled(false);
  AddTo(tabs, 2,  btn_containers_start,   "btn_containers_start",   {304, 38,  80,  20}, topLeft,  3).Caption("Start").Enabled(false);
  AddTo(tabs, 2,  btn_containers_stop,    "btn_containers_stop",    {396, 38,  80,  20}, topLeft,  4).Caption("Stop").Enabled(false);
  AddTo(tabs, 2,  btn_containers_logs,    "btn_containers_logs",    {618, 38,  80,  20}, topLeft,  5).Caption("Logs").Enabled(false);
  AddTo(tabs, 2,  txt_containers_logs,    "txt_containers_logs",    {710, 37,  50,  22}, topLeft,  6).Text("20").CueText("# Logs").Enabled(false);
  AddTo(tabs, 1,  btn_overview_reload,    "btn_overview_reload",    {498, 38, 125,  20}, topLeft,  4).Caption("Reload Server");
  AddTo(tabs, 1,  overview_progress,      "overview_progress",      {470, 41,  16,  16}, topLeft,  5).Visible(false).AccessibleName("Reloading the server");
  // Never shown, so its place is free.
  AddTo(tabs, 2,  btn_containers_backup,  "btn_containers_backup",  {488, 38,  80,  20}, topLeft,  7).Caption("Backup").Enabled(false).Visible(false);
  // clang-format on
}

void wServer::WireEvents() {
  On(btn_overview_refresh.Action, &wServer::btn_overview_refresh_Action);
  On(btn_overview_restart.Action, &wServer::btn_overview_restart_Action);
  On(btn_overview_webui.Action, &wServer::btn_overview_webui_Action);
  On(btn_overview_reload.Action, &wServer::btn_overview_reload_Action);
  On(list_containers.Open, &wServer::list_containers_Open);
  On(list_containers.Change, &wServer::list_containers_Change);
  On(list_containers.DoubleClick, &wServer::PressLogs);
  On(txt_containers_logs.Enter, &wServer::PressLogs);
  On(btn_containers_refresh.Action, &wServer::btn_containers_refresh_Action);
  On(btn_containers_logs.Action, &wServer::btn_containers_logs_Action);

  WireClient(info, &wServer::info_ButtonPressed, &wServer::info_Error);
  WireClient(restart, &wServer::restart_ButtonPressed, &wServer::restart_Error);
  WireClient(containers_list, &wServer::containers_list_ButtonPressed, &wServer::containers_list_Error);
  WireClient(containers_logs, &wServer::containers_logs_ButtonPressed, &wServer::containers_logs_Error);
  WireClient(overview_reload, &wServer::overview_reload_ButtonPressed, &wServer::overview_reload_Error);
  WireContainerActions();
}

void wServer::WireClient(TessenServicesClient& client, void (wServer::*done)(),
                         void (wServer::*failed)(const RuntimeException&)) {
  WireWait(client);
  On(client.ButtonPressed, done);
  On(client.Error, failed);
}

void wServer::WireContainerActions() {
  for (const ContainerAction& action : containerActions) {
    TessenServicesClient& client = this->*action.Client;
    WireWait(client);
    On((this->*action.Button).Action, [this, &client, &action] { Issue(client, action.Call); });
    On(client.ButtonPressed, [this, &client] { ShowStatusThenRefresh(client); });
    On(client.Error, [this, &client](const RuntimeException& err) { Tell(client, err.Message()); });
  }
}

void wServer::WireWait(TessenServicesClient& client) {
  client.Begun = [this] { BeginWait(); };
  client.Ended = [this] { EndWait(); };
}

void wServer::btn_overview_refresh_Action() { mOverview_refresh(); }

void wServer::btn_overview_restart_Action() {
  toolkit::MessageDialog question;
  question.Icon = toolkit::DialogIcon::Caution;
  question.ActionButton.Caption = "Restart";
  question.CancelButton.Visible = true;
  question.AlternateActionButton.Visible = false;
  question.Message = "Are you sure you want to restart?";
  question.Explanation = "All system services will be unavailable while the system restarts.";
  if (question.ShowModal() == toolkit::DialogButton::Action) mOverview_restart();
}

void wServer::btn_overview_webui_Action() {
  toolkit::ShowURL(CorvaneClient::Sanitize_Hostname(server_->Network_Hostname));
}

void wServer::btn_overview_reload_Action() { mOverview_reload(); }

// The service sends the last backup as a fourth cell, which is stored but not shown.
void wServer::list_containers_Open() {
  list_containers.Heading(0, "Name:");
  list_containers.Heading(1, "State:");
  list_containers.Heading(2, "Status:");
  list_containers.Heading(3, "Backup:");
}

// The panel's own container, which answers the calls, can only be restarted.
void wServer::list_containers_Change() {
  const bool isAny = list_containers.ListIndex() != -1;
  const bool isOther = isAny && list_containers.Cell(list_containers.ListIndex(), 0) != ControlAPI::ownContainer;
  for (const ContainerAction& action : containerActions) {
    (this->*action.Button).Enabled(action.Rule == OnOwnContainer::Allowed ? isAny : isOther);
  }
  btn_containers_logs.Enabled(isOther);
  txt_containers_logs.Enabled(isOther);
}

void wServer::PressLogs() { btn_containers_logs.Press(); }

void wServer::btn_containers_refresh_Action() { mContainers_refresh(); }
void wServer::btn_containers_logs_Action() { mContainers_logs(); }

void wServer::info_ButtonPressed() {
  for (const auto& [label, key] : ControlAPI::facts) {
    list_overview.AddRow({label, info.Operator_Lookup(key).Text()});
  }
}

void wServer::info_Error(const RuntimeException& err) { MsgBox(err.Message()); }

void wServer::restart_ButtonPressed() { MsgBox(StatusOf(restart)); }

void wServer::restart_Error(const RuntimeException& err) { MsgBox(err.Message()); }

void wServer::containers_list_ButtonPressed() {
  std::string problem;
  try {
    const auto* table = TableOf(containers_list, "containers");
    if (table == nullptr) throw RuntimeException("The server's reply cannot be shown: it has no “containers”.");
    TessenServicesClient::TessenListBox_FillDesktopListBox(list_containers, *table, false);
  } catch (const RuntimeException& exception) {
    problem = exception.Message();
  }
  list_containers.HasHeading(true);
  btn_containers_refresh.Enabled(true);
  list_containers.ListIndex(-1);
  if (!problem.empty()) MsgBox(problem);
}

void wServer::containers_list_Error(const RuntimeException& err) {
  MsgBox(err.Message());
  btn_containers_refresh.Enabled(true);
}

void wServer::containers_logs_ButtonPressed() {
  const auto* table = TableOf(containers_logs, "log");
  if (table == nullptr || table->empty()) {
    Tell(containers_logs, "No logs returned for this container.");
    return;
  }
  const auto window = std::make_shared<wContainerLogs>();
  window->Subject(SubjectOf(containers_logs));
  window->list_logs.FileName(targets_[&containers_logs].Container);
  TessenServicesClient::TessenListBox_FillDesktopListBox(window->list_logs, *table, false);
  window->list_logs.ListIndex(window->list_logs.ListCount() - 1);
  window->Show();
  // Otherwise the client would send the lines back with the next request.
  containers_logs.Operator_Lookup("log", std::string_view());
}

void wServer::containers_logs_Error(const RuntimeException& err) { Tell(containers_logs, err.Message()); }

void wServer::overview_reload_ButtonPressed() {
  MsgBox(StatusOf(overview_reload));
  EndReload();
}

void wServer::overview_reload_Error(const RuntimeException& err) {
  MsgBox(err.Message());
  EndReload();
}

void wServer::mOverview_refresh() {
  list_overview.DeleteAllRows();
  Issue(info, ControlAPI::information);
}

void wServer::mOverview_restart() { Issue(restart, ControlAPI::reboot); }

void wServer::mOverview_reload() {
  btn_overview_reload.Enabled(false);
  overview_progress.Visible(true);
  Issue(overview_reload, ControlAPI::reload);
}

void wServer::mContainers_refresh() {
  list_containers.DeleteAllRows();
  Issue(containers_list, ControlAPI::listContainers);
  btn_containers_refresh.Enabled(false);
}

void wServer::mContainers_logs() {
  if (list_containers.ListIndex() == -1) return;
  const auto count = ParseLogCount(txt_containers_logs.Text());
  if (!count) {
    MsgBox(
        "You must provide a number of logs to retrieve. The higher the number the longer the request will take. "
        "Enter 0 to retrieve all logs for a container.");
    return;
  }
  Issue(containers_logs, ControlAPI::containerLogs, std::to_string(*count));
}

/// Sends every request of the window. Does nothing if the window is closed, which the end of the desktop session may do
/// under a message box, and for a call that is still running for the same container.
void wServer::Issue(TessenServicesClient& client, const ControlAPI::Call& call, const std::string& logCount) {
  const bool namesContainer = call.Target == ControlAPI::Names::Container;
  if (IsClosed() || (namesContainer && list_containers.ListIndex() == -1)) return;
  if (namesContainer) {
    Target target{std::string(list_containers.Cell(list_containers.ListIndex(), 0)), logCount};
    if (client.IsConnected() && targets_[&client] == target) return;
    client.Operator_Lookup("containerName", target.Container);
    targets_[&client] = std::move(target);
  }
  if (!logCount.empty()) client.Operator_Lookup("logCount", logCount);
  CorvaneClient::SendCall(client, call, server_->Network_Hostname, server_->Username, server_->Password);
}

/// The subject of the last request of `client`.
std::string wServer::SubjectOf(const TessenServicesClient& client) const {
  return targets_.at(&client).Container + " on " + Subject();
}

void wServer::Tell(const TessenServicesClient& client, const std::string& text) const {
  MsgBox(text, SubjectOf(client));
}

void wServer::ShowStatusThenRefresh(const TessenServicesClient& client) {
  Tell(client, StatusOf(client));
  mContainers_refresh();
}

void wServer::EndReload() {
  btn_overview_reload.Enabled(true);
  overview_progress.Visible(false);
}
