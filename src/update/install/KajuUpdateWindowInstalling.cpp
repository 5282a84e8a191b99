// The part of KajuUpdateWindow from the press of the install button to the end of the program.

#include <algorithm>
#include <limits>

#include "toolkit/Application.h"
#include "toolkit/BinaryStream.h"
#include "toolkit/HTTPStatus.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"
#include "update/check/FileCheck.h"
#include "update/check/FileHelpers.h"
#include "update/check/KajuLocale.h"
#include "update/install/KajuUpdateWindow.h"
#include "update/install/Leftovers.h"
#include "update/install/Updating.h"

namespace HTTPStatus = toolkit::HTTPStatus;
using toolkit::FolderItem;
using toolkit::Timer;

namespace {

// The approximate largest value of the bar.
constexpr std::int64_t progressSteps = 1000;

}  // namespace

void KajuUpdateWindow::HandleOKButton() {
  if (CurrentStage == Stage::AskingToQuit) {
    InstallAndQuit();
  } else if (CurrentStage == Stage::ChoosingUpdate && LetUserDecide()) {
    ShowInstalling();
    if (Checker->DryRun()) {
      lblInstallMessage.Text(KajuLocale::kDryRunMessage());
    } else {
      lblInstallMessage.Text(KajuLocale::kDownloadingMessage());
      Download();
    }
  }
}

bool KajuUpdateWindow::LetUserDecide() {
  SelectedUpdate = nullptr;
  SelectedBinary = nullptr;
  const auto update = UpdateInRow(pumUpdates.ListIndex());
  if (!update) return false;
  const auto binary = UserSelectsBinary(*update);
  if (!binary || !UserConfirmsRequiredPayment(*update)) return false;
  SelectedUpdate = update;
  SelectedBinary = binary;
  return true;
}

void KajuUpdateWindow::ShowInstalling() {
  btnOK.Enabled(false);
  btnCancel.Caption(KajuLocale::kStopButton());
  btnSkipVersion.Visible(false);
  pbProgress.Maximum(0).Value(0).Visible(true);
  lblInstallMessage.Visible(true);
  pumUpdates.Enabled(false);
  CurrentStage = Stage::Installing;
}

void KajuUpdateWindow::Download() {
  if (!SelectedBinary->HasUsableNames()) return ShowError("");
  try {
    const FolderItem folder = Kaju::GetTemporaryFolder();
    DeleteOnCancel.push_back(folder);
    DownloadFile = folder.Child(SelectedBinary->FileName());
    DeleteOnClose.push_back(*DownloadFile);
  } catch (const toolkit::RuntimeException& exception) {
    return ShowError(toolkit::IsDiskFull(exception.SystemError()) ? KajuLocale::kDiskFullMessage()
                                                                  : exception.Message());
  }
  const std::string url = hsSocket.GetRedirectAddress(SelectedBinary->URL);
  if (!IsAt(Stage::Installing)) return;
  hsSocket.Get(url, *DownloadFile);
  tmrTimeout.Mode(Timer::RunMode::Single);
}

// Other statuses have a body of their own, whose length means nothing.
void KajuUpdateWindow::hsSocket_HeadersReceived(int httpStatus, std::int64_t totalBytes) {
  const auto& size = SelectedBinary->Size;
  if (httpStatus == HTTPStatus::ok && size && totalBytes >= 0 && static_cast<std::uint64_t>(totalBytes) != *size)
    EndAsCorrupted();
}

void KajuUpdateWindow::EndAsCorrupted() {
  hsSocket.Disconnect();
  tmrTimeout.Mode(Timer::RunMode::Off);
  ShowError(KajuLocale::kBadDownloadMessage());
}

void KajuUpdateWindow::hsSocket_ReceiveProgress(std::int64_t bytesReceived, std::int64_t totalBytes) {
  if (CurrentStage == Stage::Cancelled) return;
  const auto& size = SelectedBinary->Size;
  if (hsSocket.HTTPStatusCode() == HTTPStatus::ok && size && static_cast<std::uint64_t>(bytesReceived) > *size) {
    return EndAsCorrupted();
  }
  const std::int64_t divisor = std::max<std::int64_t>(totalBytes / progressSteps, 1);
  const std::int64_t value = std::min<std::int64_t>(bytesReceived / divisor, std::numeric_limits<int>::max());
  pbProgress.Maximum(static_cast<int>(totalBytes / divisor)).Value(static_cast<int>(value));
  tmrTimeout.Reset();
}

void KajuUpdateWindow::hsSocket_DownloadComplete(int httpStatus, const FolderItem& file) {
  if (CurrentStage == Stage::Cancelled) return;
  pbProgress.Maximum(-1).Value(0);
  tmrTimeout.Mode(Timer::RunMode::Off);
  if (httpStatus != HTTPStatus::ok) return ShowError("");
  const FolderItem archive(file.Path());  // the socket may drop its file while the digest is computed
  const auto verdict = Kaju::VerifyFile(archive, *SelectedBinary, [this] { return IsAt(Stage::Installing); });
  if (!IsAt(Stage::Installing)) return;
  if (verdict == Kaju::FileVerdict::Uncheckable) return ShowError(KajuLocale::kNoMD5Message());
  if (verdict != Kaju::FileVerdict::Genuine) return ShowError(KajuLocale::kBadDownloadMessage());
  lblInstallMessage.Text(KajuLocale::kProcessingFileMessage());
  const FolderItem target = archive.Parent().Child(Kaju::unpackedFolder);
  DeleteOnCancel.push_back(target);
  shZipper.Decompress(archive, target);
}

void KajuUpdateWindow::hsSocket_Error(int code) {
  hsSocket.Disconnect();
  tmrTimeout.Mode(Timer::RunMode::Off);
  if (hsSocket.FoundDiskFull()) return ShowError(KajuLocale::kDiskFullMessage());
  ShowError(KajuLocale::kGenericErrorMessage() + "  (" + std::to_string(code) + ")");
}

void KajuUpdateWindow::tmrTimeout_Action() {
  hsSocket.Disconnect();
  ShowError(KajuLocale::kTimedOutMessage());
}

void KajuUpdateWindow::shZipper_DecompressCompleted(const FolderItem& zipFile, const FolderItem& containingFolder) {
  zipFile.Delete();
  if (CurrentStage == Stage::Cancelled) return;
  const std::vector<FolderItem> items = containingFolder.Children();
  const auto replacement = std::ranges::find_if(
      items, [](const FolderItem& item) { return !item.Name().starts_with('.') && !item.Name().starts_with('_'); });
  if (replacement == items.end() || !SelectedUpdate) return ShowError("");
  Initiater = std::make_shared<Kaju::UpdateInitiater>();
  Initiater->ReplacementAppFolder = *replacement;
  Initiater->ReplacementExecutableName = SelectedBinary->ExecutableName;
  if (IsPossible(Stage::Installing)) AskToQuit();
}

bool KajuUpdateWindow::IsPossible(Stage stage) {
  const auto initiater = Initiater;
  const std::string problem = initiater->WhatPreventsIt();
  if (!IsAt(stage)) return false;
  if (problem.empty()) return true;
  initiater->Cancel();
  Initiater = nullptr;
  ShowError(problem);
  return false;
}

void KajuUpdateWindow::AskToQuit() {
  btnOK.Caption(KajuLocale::kQuitButton()).Enabled(true);
  btnCancel.Caption(KajuLocale::kCancelButton()).Visible(true);
  pbProgress.Visible(false);
  lblInstallMessage.Text(KajuLocale::kReadyMessage()).Visible(true);
  CurrentStage = Stage::AskingToQuit;
}

void KajuUpdateWindow::shZipper_Error() {
  if (CurrentStage != Stage::Cancelled) ShowError(shZipper.FoundDiskFull() ? KajuLocale::kDiskFullMessage() : "");
}

// Checks once more while errors can still be shown. Then brings the other windows to the front, each in turn, so that
// the user sees what will be closed.
void KajuUpdateWindow::InstallAndQuit() {
  btnOK.Enabled(false);
  if (!IsPossible(Stage::AskingToQuit)) return;
  Kaju::StartUpdate(Initiater);
  const auto windows = toolkit::Platform::Current().OpenWindows();
  if (windows.front().get() != this) {
    for (const auto& window : windows) {
      if (window.get() != this) window->Show();
    }
  }
  toolkit::Quit();
}
