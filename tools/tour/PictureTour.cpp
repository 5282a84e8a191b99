#include "tour/PictureTour.h"

#include <memory>

#include "shell/App.h"
#include "tour/Conditions.h"
#include "update/check/UpdateChecker.h"
#include "update/install/UpdateWindowPresenter.h"

namespace tour {
namespace {

const QString mainTitle = QStringLiteral("Corvane");
const QString serverTitle = QStringLiteral("Corvane - Server Control Panel");
const QString logTitle = QStringLiteral("Corvane - Container Logs");
const QString updateTitle = QStringLiteral("Update Available");

Inputs Call(const std::function<void()>& act) {
  return {{[] { return QString(); }, act}};
}

/// Checks for updates as the program does when it starts.
Inputs CheckForUpdates(Publisher& publisher) {
  return Call([&publisher] {
    const auto checker = std::make_shared<Kaju::UpdateChecker>(App::Current().KajuPrefFolder(), "Kaju_Preferences",
                                                               std::make_shared<Kaju::UpdateWindowPresenter>());
    checker->AllowedInteraction = Kaju::UpdateChecker::kAllowUpdateWindow;
    checker->ServerPublicRSAKey = publisher.PublicKey();
    checker->UpdateURL = publisher.UpdateURL();
    checker->Execute();
  });
}

Steps PanelSteps(const Visit& visit) {
  return {
      {"the main window opens", BringToFront(mainTitle), {Visible("btnAddServer")}, "main-empty"},
      {"a message comes", Click("btnAddServer"), {Visible("dialogBox")}, "message"},
      {"a server is added",
       PressInBox("OK") + Fill("txtHostname", visit.Host) + Fill("txtUsername", visit.User) +
           Fill("txtPassword", visit.Password) + Click("btnAddServer"),
       {HasRows("listServers", 1)},
       "main-window"},
      {"its window opens",
       ClickRow("listServers", "Demonstration") + Key(Qt::Key_Return) + BringToFront(serverTitle),
       {HasRows("list_overview", 19)},
       "overview"},
      {"a question comes", Click("btn_overview_restart"), {Visible("dialogBox")}, "reboot-question"},
      {"its containers come",
       PressInBox("Cancel") + ClickTab("tabs", "Containers"),
       {HasRows("list_containers", 12)},
       "server-containers"},
      {"one is selected", ClickRow("list_containers", "web"), {Enabled("btn_containers_stop")}, "server-window"},
      {"its log opens", Click("btn_containers_logs") + BringToFront(logTitle), {HasRows("list_logs", 20)}, "log"},
      {"a text is found in it",
       Key(Qt::Key_Home) + Key(Qt::Key_F, Qt::ControlModifier) + Keys("ms"),
       {Says("findCount", "1 of ")},
       "log-window"},
  };
}

/// The newer version is downloaded completely. The file of the older one does not have the hash that was signed.
Steps UpdateSteps(Publisher& publisher) {
  const Inputs hurryUp = Call([&publisher] { publisher.HurryUp(); });
  const Step offer{"an offer comes",
                   CheckForUpdates(publisher) + BringToFront(updateTitle),
                   {Says("pumUpdates", QString::fromStdString(Publisher::NewerVersion())), PicturesShown("hvNotes")},
                   "update-window"};
  Step again = offer;
  again.Picture.clear();
  return {
      offer,
      {"its download starts", Click("btnOK"), {PartlyDone("pbProgress")}, "update-downloading"},
      {"it is ready to be installed", hurryUp, {Says("lblInstallMessage", "Ready")}, "update-ready"},
      {"it is left for later", Click("btnCancel"), {Closed(updateTitle)}},
      again,
      {"the older version is chosen",
       Click("pumUpdates") + Key(Qt::Key_Down) + Key(Qt::Key_Return),
       {Says("pumUpdates", QString::fromStdString(Publisher::OlderVersion()))}},
      {"its download starts", Click("btnOK"), {PartlyDone("pbProgress")}},
      {"it is refused", hurryUp, {Says("lblInstallMessage", "corrupted")}, "update-corrupted"},
      {"it is left for later", Click("btnCancel"), {Closed(updateTitle)}},
  };
}

}  // namespace

Steps PictureTour(const Visit& visit, Publisher& publisher) {
  Steps steps = PanelSteps(visit);
  for (Step& step : UpdateSteps(publisher)) steps.push_back(std::move(step));
  return steps;
}

}  // namespace tour
