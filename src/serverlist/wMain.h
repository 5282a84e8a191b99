#pragma once

#include <functional>
#include <memory>

#include "serverlist/CorvaneServer.h"
#include "service/TessenServicesClient.h"
#include "toolkit/Canvas.h"
#include "toolkit/Label.h"
#include "toolkit/Listbox.h"
#include "toolkit/PushButton.h"
#include "toolkit/TextField.h"
#include "toolkit/Window.h"
#include "update/check/UpdateChecker.h"

/// The main window: the list of servers, and the form that adds one. A server is added only after it has answered an
/// "information" request, so one that refuses the credentials never gets a row.
class wMain final : public toolkit::Window {
 public:
  /// Opens the window of one server.
  using ServerOpener = std::function<void(const std::shared_ptr<CorvaneServer>&)>;

  /// `presenter` shows the offers of the update check, which starts when the window has been painted.
  explicit wMain(ServerOpener openServer, std::shared_ptr<Kaju::UpdatePresenter> presenter = nullptr);

  toolkit::Canvas Canvas1;
  toolkit::Listbox listServers;
  toolkit::TextField txtHostname;
  toolkit::TextField txtUsername;
  toolkit::TextField txtPassword;
  toolkit::PushButton btnAddServer;
  toolkit::Label labelVersion;
  toolkit::Label labelCopyright;
  TessenServicesClient client;
  /// Checks for updates of the program; nullptr until the window is open.
  std::shared_ptr<Kaju::UpdateChecker> pKaju;

 private:
  void BuildControls();
  void WireEvents();

  /// Renames preferences that cannot be read, or at least ignores them, so that the check can start without them.
  [[nodiscard]] std::shared_ptr<Kaju::UpdateChecker> MakeChecker() const;

  void Event_Open();
  void Event_Escape();
  void listServers_Open();
  void listServers_DoubleClick();
  void PressAddServer();
  void btnAddServer_Action();
  void labelVersion_Open();
  void labelCopyright_Open();
  void client_ButtonPressed();
  void client_Error(const toolkit::RuntimeException& err);

  /// Shows `problem`, with a hint if the typed address has more than a host in it.
  void TellWithHint(const std::string& problem) const;
  void LetUserEdit(bool mayEdit);

  ServerOpener openServer_;
  std::shared_ptr<Kaju::UpdatePresenter> presenter_;
};
