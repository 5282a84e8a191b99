// The part of KajuUpdateWindow that shows the offers and asks the user about them.

#include <algorithm>
#include <functional>
#include <utility>

#include "toolkit/MessageDialog.h"
#include "toolkit/ShowURL.h"
#include "toolkit/Text.h"
#include "update/check/FileHelpers.h"
#include "update/check/KajuLocale.h"
#include "update/check/ReleaseNotes.h"
#include "update/check/Versions.h"
#include "update/install/KajuUpdateWindow.h"

using toolkit::DialogButton;
using toolkit::ReplaceAll;

namespace {

constexpr double percentOfFading = 50;
constexpr std::size_t versionsBetweenBreaks = 1000;

/// Runs due events while it parses the versions of many offers.
Kaju::Offers NewestFirst(Kaju::Offers offers) {
  using Ranked = std::pair<double, Kaju::Offers::value_type>;
  std::vector<Ranked> ranked;
  for (auto& offer : offers) {
    const double version = offer->VersionAsDouble();
    ranked.emplace_back(version, std::move(offer));
    if (ranked.size() % versionsBetweenBreaks == 0) Kaju::ServeEvents();
  }
  std::ranges::stable_sort(ranked, {}, &Ranked::first);
  std::ranges::transform(ranked.rbegin(), ranked.rend(), offers.begin(), std::identity(), &Ranked::second);
  return offers;
}

}  // namespace

void KajuUpdateWindow::ChooseUpdate(const std::shared_ptr<Kaju::UpdateChecker>& checker, Kaju::Offers updates) {
  Checker = checker;
  CurrentStage = Stage::ChoosingUpdate;
  updates = NewestFirst(std::move(updates));
  if (!IsAt(Stage::ChoosingUpdate)) return;
  std::vector<toolkit::PopupMenu::Row> rows;
  for (const auto& update : updates) rows.push_back({.Text = update->Version, .Tag = update});
  pumUpdates.AddRows(std::move(rows));
  lblVersions.Visible(updates.size() != 1);
  pumUpdates.Visible(updates.size() != 1);
  pumUpdates.ListIndex(0);
}

std::shared_ptr<Kaju::UpdateInformation> KajuUpdateWindow::UpdateInRow(int row) const {
  const std::any tag = pumUpdates.RowTag(row);
  const auto* update = std::any_cast<std::shared_ptr<Kaju::UpdateInformation>>(&tag);
  return update == nullptr ? nullptr : *update;
}

void KajuUpdateWindow::pumUpdates_Change() {
  if (pumUpdates.ListIndex() == -1) {
    pumUpdates.ListIndex(0);
  } else if (const auto update = UpdateInRow(pumUpdates.ListIndex())) {
    DisplayVersionInfo(*update);
  }
}

// The texts are shown at once; picture and notes may have to be fetched, and are shown if the update is still selected.
void KajuUpdateWindow::DisplayVersionInfo(const Kaju::UpdateInformation& info) {
  const auto wanted = [this, turn = ++displayed_] { return IsAt(Stage::ChoosingUpdate) && turn == displayed_; };
  DisplayTexts(info);
  auto image = info.Image(wanted);
  bool useTransparency = info.UseTransparency;
  if (!wanted()) return;
  if (!image) {
    image = Checker->DefaultImage;
    useTransparency = Checker->DefaultUseTransparency;
  }
  if (image && useTransparency) image = toolkit::Picture::Faded(image, percentOfFading);
  BackgroundImage(std::move(image));
  std::string notes = Kaju::ProcessReleaseNotes(info.ReleaseNotes, wanted);
  if (!wanted()) return;
  Loading = true;
  hvNotes.LoadPage(std::move(notes), RelativeToFolderItem);
}

void KajuUpdateWindow::DisplayTexts(const Kaju::UpdateInformation& info) {
  AppName(info.AppName);
  const std::string secondary = pumUpdates.ListCount() == 1
                                    ? ReplaceAll(KajuLocale::kSecondaryNoticeOne(), "<<NewVersion>>", info.Version)
                                    : KajuLocale::kSecondaryNoticeMultiple();
  lblMain.Text(ReplaceAll(KajuLocale::kMainNotice(), "<<AppName>>", AppName()));
  lblSecondary.Text(ReplaceAll(secondary, "<<ThisVersion>>", Kaju::AppVersionString()));
}

bool KajuUpdateWindow::hvNotes_CancelLoad(const std::string& /*url*/) { return !std::exchange(Loading, false); }

toolkit::HTMLViewer* KajuUpdateWindow::hvNotes_NewWindow() { return &hvNewWindow; }

// Any other scheme could make the desktop start a program.
bool KajuUpdateWindow::hvNewWindow_CancelLoad(const std::string& url) {
  if (toolkit::IsForBrowser(url)) toolkit::ShowURL(url);
  return true;
}

void KajuUpdateWindow::btnSkipVersion_Action() {
  const auto info = UpdateInRow(pumUpdates.ListIndex());
  if (!info || CurrentStage != Stage::ChoosingUpdate) return;
  if (info->IsRequiredFor(Kaju::VersionToDouble(Kaju::AppVersionString()))) {
    toolkit::MsgBox(ReplaceAll(KajuLocale::kCannotSkipVersionsMessage(), "<<Version>>", info->MinimumRequiredVersion));
    return;
  }
  Checker->IgnoreVersion(info->Version);
  if (pumUpdates.ListCount() == 1) {
    Close();
  } else {
    pumUpdates.RemoveRow(pumUpdates.ListIndex());
  }
}

bool KajuUpdateWindow::UserConfirmsRequiredPayment(const Kaju::UpdateInformation& info) {
  if (!info.RequiresPayment) return true;
  toolkit::MessageDialog dialog;
  dialog.Message = KajuLocale::kPaymentRequiredMessage();
  dialog.ActionButton = {.Caption = KajuLocale::kProceedButton(), .Visible = true};
  dialog.CancelButton.Visible = true;
  return dialog.ShowModal() != DialogButton::Cancel;
}

std::shared_ptr<Kaju::BinaryInformation> KajuUpdateWindow::UserSelectsBinary(
    const Kaju::UpdateInformation& info) const {
  const Kaju::BuildTarget target = Checker->Target;
  if (target.Bits == Kaju::Width::Bits64 || !Checker->Allow32bitTo64bitUpdates) {
    return info.PlatformBinarySameBitness(target);
  }
  auto b64 = info.PlatformBinary64bit(target.Platform);
  auto b32 = info.PlatformBinary32bit(target.Platform);
  if (!b64) return b32;

  toolkit::MessageDialog dialog;
  dialog.Message = KajuLocale::kCurrenlyUsing32bitMessage() + " ";
  dialog.Message += b32 ? KajuLocale::kChooseBetweenBitsMessage() : KajuLocale::kChoose64bitMessage();
  dialog.Explanation = KajuLocale::kExplain64bitMessage();
  dialog.ActionButton.Caption = b32 ? KajuLocale::kUse32bitLabel() : KajuLocale::kProceedButton();
  dialog.AlternateActionButton = {.Caption = KajuLocale::kUse64bitLabel(), .Visible = b32 != nullptr};
  dialog.CancelButton = {.Caption = KajuLocale::kCancelButton(), .Visible = true};
  const DialogButton pressed = dialog.ShowModal();
  if (pressed == DialogButton::Cancel) return nullptr;
  return !b32 || pressed == DialogButton::Alternate ? b64 : b32;
}
