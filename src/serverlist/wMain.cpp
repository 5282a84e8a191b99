#include "serverlist/wMain.h"

#include <array>
#include <string>
#include <utility>

#include "serverlist/CorvaneClient.h"
#include "shell/App.h"
#include "shell/MenuBar1.h"
#include "shell/Product.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/SpecialFolder.h"
#include "toolkit/TextFile.h"

using toolkit::bottomAndSides;
using toolkit::bottomRight;
using toolkit::Stage;
using toolkit::topAndSides;

namespace {

/// Final, unless a file on the user's desktop, whatever its content, allows earlier stages.
int AllowedUpdateStage() {
  const toolkit::FolderItem desktop = toolkit::SpecialFolder::Desktop();
  if (desktop.Child("corvane_beta.txt").Exists()) return CodeOf(Stage::Beta);
  if (desktop.Child("corvane_alpha.txt").Exists()) return CodeOf(Stage::Alpha);
  return CodeOf(Stage::Final);
}

}  // namespace

wMain::wMain(ServerOpener openServer, std::shared_ptr<Kaju::UpdatePresenter> presenter)
    : Window("Corvane", {600, 514}, {600, 64}, {600, 32000}),
      openServer_(std::move(openServer)),
      presenter_(std::move(presenter)) {
  BuildControls();
  WireEvents();
  OpenControls();
}

void wMain::BuildControls() {
  Menus(MenuBar1());
  // clang-format off
  //  control                           left  top width height  locks          order
  Add(Canvas1,        "Canvas1",        {  0,   0, 600, 164}, topAndSides,    0).Backdrop(Logo_Banner_600x164()).AccessibleName("Corvane banner");
  Add(listServers,    "listServers",    {  0, 162, 600, 200}, topAndSides,    1).ColumnCount(3).ColumnWidths("200,150,400").HasHeading(true).AccessibleName("Servers");
  Add(txtHostname,    "txtHostname",    { 20, 374, 560,  22}, bottomAndSides, 2).CueText("Server Hostname or IP Address");
  Add(txtUsername,    "txtUsername",    { 20, 408, 200,  22}, bottomRight,    3).CueText("Username");
  Add(txtPassword,    "txtPassword",    {232, 408, 200,  22}, bottomRight,    4).CueText("Password").Masked(toolkit::Masking::Password);
  Add(btnAddServer,   "btnAddServer",   {444, 408, 136,  20}, bottomRight,    5).Caption("Add Server");
  Add(labelVersion,   "labelVersion",   { 20, 442, 560,  20}, bottomAndSides, 6).Text("VERSION").TextAlign(toolkit::Alignment::Center);
  Add(labelCopyright, "labelCopyright", { 20, 474, 560,  20}, bottomAndSides, 7).Text("COPYRIGHT").TextAlign(toolkit::Alignment::Center);
  // clang-format on
}

void wMain::WireEvents() {
  On(Open, &wMain::Event_Open);
  On(Escape, &wMain::Event_Escape);
  On(listServers.Open, &wMain::listServers_Open);
  On(listServers.DoubleClick, &wMain::listServers_DoubleClick);
  for (auto* field : {&txtHostname, &txtUsername, &txtPassword}) On(field->Enter, &wMain::PressAddServer);
  On(btnAddServer.Action, &wMain::btnAddServer_Action);
  On(labelVersion.Open, &wMain::labelVersion_Open);
  On(labelCopyright.Open, &wMain::labelCopyright_Open);
  client.Begun = [this] { BeginWait(), LetUserEdit(false); };
  client.Ended = [this] { EndWait(), LetUserEdit(true); };
  On(client.ButtonPressed, &wMain::client_ButtonPressed);
  On(client.Error, &wMain::client_Error);
}

// Execute() runs the event loop, so the window may be closed before it returns.
void wMain::Event_Open() {
  const auto checker = MakeChecker();
  pKaju = checker;
  checker->AllowedInteraction = Kaju::UpdateChecker::kAllowUpdateWindow;
  checker->ServerPublicRSAKey = product::updatePublicKey;
  checker->UpdateURL = product::updateURL;
  checker->AllowedStage = AllowedUpdateStage();
  checker->Execute();
}

std::shared_ptr<Kaju::UpdateChecker> wMain::MakeChecker() const {
  toolkit::FolderItem folder = App::Current().KajuPrefFolder();
  constexpr std::string_view name = "Kaju_Preferences";
  std::string problem;
  try {
    return std::make_shared<Kaju::UpdateChecker>(folder, name, presenter_);
  } catch (const toolkit::RuntimeException& unreadable) {
    problem = unreadable.Message();
  }
  try {
    problem += " What was there is now called " + toolkit::SetAside(folder.Child(name)).Name() +
               ", and versions that you skipped are offered again.";
  } catch (const toolkit::RuntimeException& immovable) {
    problem += " " + immovable.Message() + ", so versions that you skip are offered again.";
    folder = toolkit::FolderItem("/dev/null");  // holds nothing, and takes nothing
  }
  toolkit::MsgBox(problem);
  return std::make_shared<Kaju::UpdateChecker>(folder, name, presenter_);
}

// Ends a request that a server never answers.
void wMain::Event_Escape() {
  if (!client.IsConnected()) return;
  client.Disconnect();
  client.Ended();
}

void wMain::listServers_Open() {
  listServers.Heading(0, "Server Name:");
  listServers.Heading(1, "IP Address:");
  listServers.Heading(2, "Hostname:");
}

void wMain::listServers_DoubleClick() {
  const std::any tag = listServers.RowTag(listServers.ListIndex());
  const auto* server = std::any_cast<std::shared_ptr<CorvaneServer>>(&tag);
  if (server != nullptr) openServer_(*server);
}

void wMain::PressAddServer() { btnAddServer.Press(); }

// The form is read again when the reply arrives, so it is locked while a request is running, and a second press is
// ignored.
void wMain::btnAddServer_Action() {
  if (client.IsConnected()) return;
  if (txtHostname.Text().empty()) {
    toolkit::MsgBox("You must provide your server hostname to continue.");
    return;
  }
  if (txtUsername.Text().empty() || txtPassword.Text().empty()) {
    toolkit::MsgBox("You must provide both your username and password to continue.");
    return;
  }
  CorvaneClient::SendCall(client, ControlAPI::information, txtHostname.Text(), txtUsername.Text(), txtPassword.Text());
}

void wMain::labelVersion_Open() { labelVersion.Text("Version " + App::Current().DunmereVersion()); }

void wMain::labelCopyright_Open() { labelCopyright.Text(product::copyright); }

void wMain::client_ButtonPressed() {
  for (const std::string_view key : {"networkHostname", "networkIPv4", "systemName"}) {
    if (client.Operator_Lookup(key).IsTextOrNumber()) continue;
    TellWithHint("The server was not added: its reply gives no usable “" + std::string(key) + "”.");
    return;
  }
  const auto server = std::make_shared<CorvaneServer>();
  server->Username = txtUsername.Text();
  server->Password = txtPassword.Text();
  server->Network_Hostname = client.Operator_Lookup("networkHostname").Text();
  server->Network_IPv4 = client.Operator_Lookup("networkIPv4").Text();
  server->System_Name = client.Operator_Lookup("systemName").Text();
  CorvaneClient::Servers.push_back(server);

  listServers.AddRow({server->System_Name, server->Network_IPv4, server->Network_Hostname});
  listServers.RowTag(listServers.ListCount() - 1, server);
  txtHostname.Text("");
  txtUsername.Text("");
  txtPassword.Text("");
}

// What a panel service tells is shown as it is.
void wMain::client_Error(const toolkit::RuntimeException& err) {
  client.IsAnswered() ? toolkit::MsgBox(err.Message(), txtHostname.Text()) : TellWithHint(err.Message());
}

void wMain::TellWithHint(const std::string& problem) const {
  const std::string& host = txtHostname.Text();
  toolkit::MsgBox(problem + std::string(CorvaneClient::HintForHostname(host)), host);
}

void wMain::LetUserEdit(bool mayEdit) {
  for (auto* field : {&txtHostname, &txtUsername, &txtPassword}) field->Enabled(mayEdit);
}
