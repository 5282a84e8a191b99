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

/// The window of an update, from the offer to the moment when only the end of the program is missing. It shows the
/// release notes, lets the user choose a version, downloads its file, checks its hash and unpacks it. Nothing of the
/// running program is touched before the user's last press.
///
/// Fetches and hashing run other handlers, by which the user may stop, close or quit: each step checks the stage
/// afterwards.
class KajuUpdateWindow final : public toolkit::Window {
 public:
  enum class Stage {
    /// The user looks at the notes and has three choices.
    ChoosingUpdate = 0,
    /// Download and unpacking are running.
    Installing = 1,
    /// The update is unpacked; the program must quit to install it.
    AskingToQuit = 2,
    /// An error is on show.
    Failed = 3,
    /// The window is going, and so is all that was fetched.
    Cancelled = 4,
  };

  KajuUpdateWindow();

  /// The one window of this kind, open. It is made when it is first asked for, or after the last one was closed.
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
  /// Removed with all that is in them: the first when the window closes without an update to install, the second
  /// whenever it closes.
  std::vector<toolkit::FolderItem> DeleteOnCancel;
  std::vector<toolkit::FolderItem> DeleteOnClose;
  /// Where the archive goes.
  std::optional<toolkit::FolderItem> DownloadFile;
  /// The update that is ready to be installed.
  std::shared_ptr<Kaju::UpdateInitiater> Initiater;
  /// Whether the next load that the notes viewer asks about is that of the notes.
  bool Loading = false;
  /// What the notes are loaded relative to: an empty file, once the window is open.
  toolkit::FolderItem RelativeToFolderItem{""};
  std::shared_ptr<Kaju::BinaryInformation> SelectedBinary;
  std::shared_ptr<Kaju::UpdateInformation> SelectedUpdate;

  /// What the program is called in the window's texts.
  [[nodiscard]] std::string AppName() const;
  void AppName(std::string name) { appName_ = std::move(name); }
  /// Fills the window behind the controls; nullptr for the palette's own colour.
  [[nodiscard]] const std::shared_ptr<const toolkit::Picture>& BackgroundImage() const { return backgroundImage_; }
  void BackgroundImage(std::shared_ptr<const toolkit::Picture> picture);

  /// Offers `updates`, the newest first, and shows that one. Fetches its picture and notes, and runs the event loop
  /// meanwhile.
  void ChooseUpdate(const std::shared_ptr<Kaju::UpdateChecker>& checker, Kaju::Offers updates);
  /// Ends whatever goes on and closes the window; after a required update the program quits, if the checker wants that.
  void Cancel();
  /// Shows an error, after which the user can only close the window. The blank text stands for a general message.
  void ShowError(const std::string& msg);
  /// These do nothing: the window cannot be modal.
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
  /// Whether nothing keeps the update from being installed. If something does, it is on show; if the stage is another
  /// one by then, it does not matter any more.
  [[nodiscard]] bool IsPossible(Stage stage);
  void AskToQuit();
  void InstallAndQuit();
  void EndWork();
  [[nodiscard]] bool IsAt(Stage stage) const { return CurrentStage == stage && !IsClosed(); }

  std::string appName_;
  std::shared_ptr<const toolkit::Picture> backgroundImage_;
  // Counts the updates that were shown, so that fetching for one ends when another is chosen.
  unsigned displayed_ = 0;
};
