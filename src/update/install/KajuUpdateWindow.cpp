#include "update/install/KajuUpdateWindow.h"

#include <algorithm>
#include <utility>

#include "shell/App.h"
#include "shell/MenuBar1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"
#include "update/check/FileHelpers.h"
#include "update/check/KajuLocale.h"
#include "update/install/Updating.h"

using toolkit::ButtonRole;
using toolkit::LabelFont;
using toolkit::LabelGround;
using toolkit::LabelLines;
using toolkit::topLeft;

namespace {

constexpr std::chrono::milliseconds longestStall{5000};

}  // namespace

KajuUpdateWindow::KajuUpdateWindow()
    : Window(KajuLocale::kWindowTitle(), {800, 600}, {64, 64}, {32000, 32000}, toolkit::WindowFrame::Fixed) {
  BuildControls();
  WireEvents();
  OpenControls();
}

std::shared_ptr<KajuUpdateWindow> KajuUpdateWindow::FindOpen() {
  for (const auto& window : toolkit::Platform::Current().OpenWindows()) {
    if (auto open = std::dynamic_pointer_cast<KajuUpdateWindow>(window)) return open;
  }
  return nullptr;
}

std::shared_ptr<KajuUpdateWindow> KajuUpdateWindow::Shared() {
  if (auto open = FindOpen()) return open;
  auto window = std::make_shared<KajuUpdateWindow>();
  window->Show();
  return window;
}

void KajuUpdateWindow::BuildControls() {
  Menus(MenuBar1());
  Origin(toolkit::WindowOrigin::Unasked);
  // clang-format off
  //  control                                    left  top  width height   locks   order
  Add(hvNotes,           "hvNotes",           { 149,  84, 631, 445}, topLeft,  0).AccessibleName(KajuLocale::kReleaseNotesName());
  Add(btnOK,             "btnOK",             { 630, 555, 150,  20}, topLeft,  1).Caption(KajuLocale::kInstallButton()).Role(ButtonRole::Default);
  Add(btnCancel,         "btnCancel",         { 468, 555, 150,  20}, topLeft,  2).Caption(KajuLocale::kRemindMeLaterButton()).Role(ButtonRole::Cancel);
  Add(btnSkipVersion,    "btnSkipVersion",    { 149, 555, 150,  20}, topLeft,  3).Caption(KajuLocale::kSkipVersionButton());
  Add(lblMain,           "lblMain",           { 149,  14, 631,  20}, topLeft,  4).Text("Untitled").Font(LabelFont::BoldSystem).Ground(LabelGround::Picture);
  Add(lblSecondary,      "lblSecondary",      { 149,  39, 631,  25}, topLeft,  5).Text("Untitled").Lines(LabelLines::Several).Ground(LabelGround::Picture);
  Add(Label1,            "Label1",            { 149,  64, 631,  20}, topLeft,  6).Text(KajuLocale::kReleaseNotesLabel()).Font(LabelFont::BoldSmallSystem).Ground(LabelGround::Picture);
  Add(lblInstallMessage, "lblInstallMessage", { 149, 555, 294,  30}, topLeft,  7).Text(KajuLocale::kDownloadingMessage()).Lines(LabelLines::Several).Ground(LabelGround::Picture).Visible(false);
  Add(pbProgress,        "pbProgress",        {  20, 555, 117,  20}, topLeft,  8).AccessibleName(KajuLocale::kProgressName()).Visible(false);
  Add(hvNewWindow,       "hvNewWindow",       {-345, 119, 300, 200}, topLeft,  9).Visible(false);
  Add(lblVersions,       "lblVersions",       {  20,  64, 117,  20}, topLeft, 10).Text(KajuLocale::kVersionsLabel()).Font(LabelFont::BoldSmallSystem).Ground(LabelGround::Picture);
  Add(pumUpdates,        "pumUpdates",        {  36,  87, 101,  20}, topLeft, 11).AccessibleName(KajuLocale::kVersionsName());
  // clang-format on
  shZipper.Mode = Kaju::ZipShell::RunMode::Asynchronous;
  tmrTimeout.Period = longestStall;
}

void KajuUpdateWindow::WireEvents() {
  On(Open, &KajuUpdateWindow::Event_Open);
  On(Paint, &KajuUpdateWindow::Event_Paint);
  On(hvNotes.CancelLoad, &KajuUpdateWindow::hvNotes_CancelLoad);
  On(hvNotes.NewWindow, &KajuUpdateWindow::hvNotes_NewWindow);
  On(hvNewWindow.CancelLoad, &KajuUpdateWindow::hvNewWindow_CancelLoad);
  On(btnOK.Action, &KajuUpdateWindow::btnOK_Action);
  On(btnCancel.Action, &KajuUpdateWindow::btnCancel_Action);
  On(btnSkipVersion.Action, &KajuUpdateWindow::btnSkipVersion_Action);
  On(pumUpdates.Change, &KajuUpdateWindow::pumUpdates_Change);
  On(hsSocket.HeadersReceived, &KajuUpdateWindow::hsSocket_HeadersReceived);
  On(hsSocket.ReceiveProgress, &KajuUpdateWindow::hsSocket_ReceiveProgress);
  On(hsSocket.DownloadComplete, &KajuUpdateWindow::hsSocket_DownloadComplete);
  On(hsSocket.Error, &KajuUpdateWindow::hsSocket_Error);
  On(shZipper.DecompressCompleted, &KajuUpdateWindow::shZipper_DecompressCompleted);
  On(shZipper.Error, &KajuUpdateWindow::shZipper_Error);
  On(tmrTimeout.Action, &KajuUpdateWindow::tmrTimeout_Action);
}

std::string KajuUpdateWindow::AppName() const { return appName_.empty() ? KajuLocale::kThisApplication() : appName_; }

void KajuUpdateWindow::BackgroundImage(std::shared_ptr<const toolkit::Picture> picture) {
  backgroundImage_ = std::move(picture);
  Invalidate();
}

void KajuUpdateWindow::Event_Open() {
  RelativeToFolderItem = toolkit::MakeTemporaryFile();
  DeleteOnClose.push_back(RelativeToFolderItem);
}

void KajuUpdateWindow::Event_Paint(toolkit::Graphics& g) {
  if (backgroundImage_) g.DrawPicture(backgroundImage_, {0, 0, g.Width(), g.Height()});
  g.PenWidth = 1;
  g.PenHeight = 1;
  g.ForeColor = 0;
  const toolkit::Rect notes = PlaceOf(hvNotes);
  g.DrawRect({notes.Left - 1, notes.Top - 1, notes.Width + 2, notes.Height + 2});
}

void KajuUpdateWindow::ShowError(const std::string& msg) {
  const std::string_view text = toolkit::Trim(msg);
  lblInstallMessage.Text(text.empty() ? KajuLocale::kGenericErrorMessage() : std::string(text)).Visible(true);
  pbProgress.Visible(false);
  btnOK.Enabled(false);
  btnCancel.Caption(KajuLocale::kTryLaterButton());
  btnSkipVersion.Visible(false);
  CurrentStage = Stage::Failed;
}

void KajuUpdateWindow::Cancel() {
  EndWork();
  const bool quits = Checker && Checker->QuitOnCancelIfRequired && !Checker->DryRun() &&
                     Checker->Result() == Kaju::UpdateChecker::ResultType::RequiredUpdateAvailable;
  if (quits) {
    toolkit::Quit();
  } else {
    Close();
  }
}

// Sets the stage first, for handlers that are still running.
void KajuUpdateWindow::EndWork() {
  CurrentStage = Stage::Cancelled;
  SelectedUpdate = nullptr;
  if (Initiater) Initiater->Cancel();
  Kaju::CancelUpdate();
  hsSocket.Disconnect();
  shZipper.Close();
  tmrTimeout.Mode(toolkit::Timer::RunMode::Off);
}

// Only the user's last press confirms the installation; the end of the program or of the desktop session does not.
void KajuUpdateWindow::Event_Close() {
  if (!App::Current().UpdateInitiater) EndWork();
  if (CurrentStage == Stage::Cancelled) std::ranges::for_each(DeleteOnCancel, Kaju::DeleteWholly);
  std::ranges::for_each(DeleteOnClose, Kaju::DeleteRecursive);
  Initiater = nullptr;
}
