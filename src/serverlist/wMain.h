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

/// The main window: the servers that were added, and the form that adds one. A server is added by asking it for its
/// information, so one that does not answer valid credentials never gets a row.
class wMain final : public toolkit::Window {
 public:
  /// Opens the window of one server.
  using ServerOpener = std::function<void(const std::shared_ptr<CorvaneServer>&)>;

  /// Offers of the update check, which starts when the window has been painted, go to `presenter`.
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
  /// Looks for updates of the program; nullptr until the window is open.
  std::shared_ptr<Kaju::UpdateChecker> pKaju;

 private:
  void BuildControls();
  void WireEvents();

  /// Preferences that cannot be read are out of its way.
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

  /// And what was typed wrong, if that is why.
  void TellWithHint(const std::string& problem) const;
  void LetUserEdit(bool mayEdit);

  ServerOpener openServer_;
  std::shared_ptr<Kaju::UpdatePresenter> presenter_;
};
