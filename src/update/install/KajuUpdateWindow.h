#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/FolderItem.h"
#include "toolkit/HTMLViewer.h"
#include "toolkit/Label.h"
#include "toolkit/Picture.h"
#include "toolkit/PopupMenu.h"
#include "toolkit/ProgressBar.h"
#include "toolkit/PushButton.h"
#include "toolkit/Timer.h"
#include "toolkit/Window.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/UpdateChecker.h"
#include "update/check/UpdatePresenter.h"
#include "update/install/UpdateInitiater.h"
#include "update/install/ZipShell.h"

/// The window of an update, from the offer to the point where only the program must end. It shows the release notes,
/// lets the user choose a version, downloads its file, checks its digests and unpacks it. The running program is not
/// changed before the user's last press.
///
/// Fetching and hashing run other handlers, in which the user may stop, close or quit: each step checks the stage
/// afterwards.
class KajuUpdateWindow final : public toolkit::Window {
 public:
  enum class Stage {
    /// The user reads the notes and has three choices.
    ChoosingUpdate = 0,
    /// The file is being downloaded or unpacked.
    Installing = 1,
    /// The update is unpacked; the program must quit to install it.
    AskingToQuit = 2,
    /// An error is shown.
    Failed = 3,
    /// The window is being closed, and everything that was downloaded deleted.
    Cancelled = 4,
  };

  KajuUpdateWindow();

  /// The one open window of this class. Created on the first call, and again after it was closed.
  [[nodiscard]] static std::shared_ptr<KajuUpdateWindow> Shared();
  [[nodiscard]] static bool IsOpen() { return FindOpen() != nullptr; }

  toolkit::HTMLViewer hvNotes;
  toolkit::PushButton btnOK;
  toolkit::PushButton btnCancel;
  toolkit::PushButton btnSkipVersion;
  toolkit::Label lblMain;
  toolkit::Label lblSecondary;
  toolkit::Label Label1;
  toolkit::Label lblInstallMessage;
  toolkit::ProgressBar pbProgress;
  toolkit::HTMLViewer hvNewWindow;
  toolkit::Label lblVersions;
  toolkit::PopupMenu pumUpdates;
  Kaju::HTTPSSocket hsSocket;
  Kaju::ZipShell shZipper;
  toolkit::Timer tmrTimeout;

  std::shared_ptr<Kaju::UpdateChecker> Checker;
  Stage CurrentStage = Stage::ChoosingUpdate;
  /// Deleted with their content: the first when the window is closed without an update to install, the second whenever
  /// it is closed.
  std::vector<toolkit::FolderItem> DeleteOnCancel;
  std::vector<toolkit::FolderItem> DeleteOnClose;
  /// The downloaded archive.
  std::optional<toolkit::FolderItem> DownloadFile;
  /// The update that is ready to be installed.
  std::shared_ptr<Kaju::UpdateInitiater> Initiater;
  /// Whether the next load that the notes viewer asks about is that of the notes.
  bool Loading = false;
  /// The base of relative addresses in the notes: an empty file, once the window is open.
  toolkit::FolderItem RelativeToFolderItem{""};
  std::shared_ptr<Kaju::BinaryInformation> SelectedBinary;
  std::shared_ptr<Kaju::UpdateInformation> SelectedUpdate;

  /// The name of the program in the window's texts.
  [[nodiscard]] std::string AppName() const;
  void AppName(std::string name) { appName_ = std::move(name); }
  /// Drawn over the whole window, behind the controls; nullptr for the palette's own colour.
  [[nodiscard]] const std::shared_ptr<const toolkit::Picture>& BackgroundImage() const { return backgroundImage_; }
  void BackgroundImage(std::shared_ptr<const toolkit::Picture> picture);

  /// Offers `updates`, newest first, and selects the newest. Fetches its picture and notes, and runs the event loop
  /// meanwhile.
  void ChooseUpdate(const std::shared_ptr<Kaju::UpdateChecker>& checker, Kaju::Offers updates);
  /// Ends all work and closes the window; after a required update the program quits, if the checker is set so.
  void Cancel();
  /// Shows an error, after which the user can only close the window. A blank text stands for a general message.
  void ShowError(const std::string& msg);
  /// Do nothing: the window cannot be modal.
  static void ShowModal() {}
  static void ShowModalWithin(const Window& /*parent*/) {}

 protected:
  void Event_Close() override;

 private:
  [[nodiscard]] static std::shared_ptr<KajuUpdateWindow> FindOpen();
  void BuildControls();
  void WireEvents();

  void Event_Open();
  void Event_Paint(toolkit::Graphics& g);
  bool hvNotes_CancelLoad(const std::string& url);
  toolkit::HTMLViewer* hvNotes_NewWindow();
  bool hvNewWindow_CancelLoad(const std::string& url);
  void btnOK_Action() { HandleOKButton(); }
  void btnCancel_Action() { Cancel(); }
  void btnSkipVersion_Action();
  void pumUpdates_Change();
  void hsSocket_HeadersReceived(int httpStatus, std::int64_t totalBytes);
  void hsSocket_ReceiveProgress(std::int64_t bytesReceived, std::int64_t totalBytes);
  void hsSocket_DownloadComplete(int httpStatus, const toolkit::FolderItem& file);
  void hsSocket_Error(int code);
  void shZipper_DecompressCompleted(const toolkit::FolderItem& zipFile, const toolkit::FolderItem& containingFolder);
  void shZipper_Error();
  void tmrTimeout_Action();

  [[nodiscard]] std::shared_ptr<Kaju::UpdateInformation> UpdateInRow(int row) const;
  void DisplayVersionInfo(const Kaju::UpdateInformation& info);
  void DisplayTexts(const Kaju::UpdateInformation& info);
  [[nodiscard]] static bool UserConfirmsRequiredPayment(const Kaju::UpdateInformation& info);
  [[nodiscard]] std::shared_ptr<Kaju::BinaryInformation> UserSelectsBinary(const Kaju::UpdateInformation& info) const;

  void HandleOKButton();
  [[nodiscard]] bool LetUserDecide();
  void ShowInstalling();
  void Download();
  void EndAsCorrupted();
  /// Whether the update can be installed. If not, the reason is shown, unless the stage has changed meanwhile.
  [[nodiscard]] bool IsPossible(Stage stage);
  void AskToQuit();
  void InstallAndQuit();
  void EndWork();
  [[nodiscard]] bool IsAt(Stage stage) const { return CurrentStage == stage && !IsClosed(); }

  std::string appName_;
  std::shared_ptr<const toolkit::Picture> backgroundImage_;
  // The number of updates shown so far, so that fetching for one stops when another is selected.
  unsigned displayed_ = 0;
};
