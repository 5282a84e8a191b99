#include "update/check/UpdateChecker.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

#include "toolkit/DebugLog.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"
#include "update/check/FileHelpers.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/KajuException.h"
#include "update/check/KajuLocale.h"
#include "update/check/UpdatePacket.h"
#include "update/check/Versions.h"

namespace Kaju {
namespace {

constexpr std::uint64_t largestDocument = std::uint64_t{64} << 20U;
constexpr double beforeAllVersions = -1.0;
constexpr std::size_t offersBetweenBreaks = 64;

std::string BadData(const std::string& reason) {
  return KajuLocale::kErrorBadUpdateData() + (reason.empty() ? "" : " - " + reason);
}

/// The elements of the document. An empty object has none; any other object is an error.
std::span<const toolkit::JSONItem> Elements(const toolkit::JSONItem& document) {
  if (const auto* array = document.if_array()) return {array->data(), array->size()};
  if (document.get_object().empty()) return {};
  throw toolkit::TypeMismatchException("the document is not an array");
}

}  // namespace

UpdateChecker::UpdateChecker(const toolkit::FolderItem& preferencesFolder, std::string_view preferencesFilename,
                             std::shared_ptr<UpdatePresenter> presenter)
    : prefFile_(preferencesFolder.Child(preferencesFilename)),
      presenter_(std::move(presenter)),
      preferences_(LoadPreferences(prefFile_)),
      savedPreferences_(preferences_) {}

UpdateChecker::~UpdateChecker() {
  if (preferences_ == savedPreferences_ && prefFile_.Exists()) return;
  try {
    SavePreferences(prefFile_, preferences_);
  } catch (const std::exception& exception) {
    toolkit::DebugLog(exception.what());
  }
}

void UpdateChecker::Execute() {
  if (const auto obstacle = Obstacle()) {
    result_ = *obstacle;
    return;
  }
  dryRun_ = false;
  if (toolkit::Trim(UpdateURL).empty()) {
    throw KajuException(KajuException::kErrorMissingUpdateURL(), "Kaju.UpdateChecker.Execute");
  }
  std::string url = UpdateURL;
  if (AllowRedirection) url = HTTPSSocket().GetRedirectAddress(url);
  while (FetchAndProcess(url) == Next::FetchAgain) continue;
}

void UpdateChecker::TestUpdate(const std::string& jsonString) {
  if (UpdateWindowIsOpen()) {
    result_ = ResultType::UpdateWindowOpen;
    return;
  }
  dryRun_ = true;
  while (ProcessUpdateData(jsonString) == Next::FetchAgain) continue;
}

void UpdateChecker::IgnoreVersion(const std::string& version) {
  if (!version.empty() && !IsIgnored(version)) preferences_.IgnoreVersionsPref.push_back(version);
}

std::optional<UpdateChecker::ResultType> UpdateChecker::Obstacle() const {
  if (UpdateWindowIsOpen()) return ResultType::UpdateWindowOpen;
  if (!OSIsSupported()) return ResultType::UnsupportedOS;
  const toolkit::FolderItem program = TrueExecutableFile();
  if (!program.Parent().IsWriteable()) return ResultType::NoWritePermission;
  if (!IsWriteableRecursive(program)) return ResultType::NoWritePermission;
  return std::nullopt;
}

UpdateChecker::Next UpdateChecker::FetchAndProcess(const std::string& url) {
  HTTPSSocket socket;
  socket.LargestBody = largestDocument;
  const std::string body = socket.Get(url, HTTPSSocket::kTimeoutSeconds);
  if (socket.IsMissing()) {
    result_ = ResultType::NoUpdateAvailable;
    return Next::Return;
  }
  if (socket.WasTooLarge()) return HandleError(BadData("the document is too large"));
  if (body.empty()) return HandleError(KajuLocale::kErrorNoUpdateData());

  const UpdatePacket packet = SeparatePacket(body);
  switch (VerifyPacket(packet, ServerPublicRSAKey, ServeEvents)) {
    case PacketVerdict::WrongMarker:
      return HandleError(KajuLocale::kErrorIncorrectPacketMarker());
    case PacketVerdict::WrongSignature:
      return HandleError(KajuLocale::kErrorIncorrectPacketSignature());
    case PacketVerdict::Genuine:
      break;
  }
  return ProcessUpdateData(packet.Payload);
}

UpdateChecker::Next UpdateChecker::ProcessUpdateData(std::string_view raw) {
  try {
    Decide(raw);
    return Next::Return;
  } catch (const toolkit::RuntimeException& exception) {
    toolkit::DebugLog(exception.Message());
    return HandleError(BadData(exception.Message()));
  }
}

void UpdateChecker::Decide(std::string_view raw) {
  result_ = ResultType::NoUpdateAvailable;
  const double currentVersion = dryRun_ ? beforeAllVersions : VersionToDouble(AppVersionString());
  Offers offers;
  bool requiredFound = false;
  auto document = toolkit::ParseJSONItem(raw, ServeEvents);
  if (!document) return;
  std::size_t read = 0;
  for (const toolkit::JSONItem& element : Elements(*document)) {
    if (++read % offersBetweenBreaks == 0 && !ServeEvents()) return;
    auto update = std::make_shared<UpdateInformation>(element);
    if (!Concerns(*update, currentVersion)) continue;
    const bool isRequired = update->IsRequiredFor(currentVersion);
    requiredFound = requiredFound || isRequired;
    if (!isRequired && HonorIgnored && IsIgnored(update->Version)) {
      result_ = ResultType::IgnoredUpdateAvailable;
    } else {
      offers.push_back(std::move(update));
    }
  }
  document = nullptr;  // takes a while if it is large
  if (offers.empty() || !ServeEvents()) return;
  result_ = requiredFound ? ResultType::RequiredUpdateAvailable : ResultType::UpdateAvailable;
  if (presenter_ && IsAllowed(kAllowUpdateWindow)) presenter_->ChooseUpdate(shared_from_this(), std::move(offers));
}

/// Whether the update has a file for this build, is of an allowed stage, newer than the program, and not expired.
bool UpdateChecker::Concerns(const UpdateInformation& update, double currentVersion) const {
  const bool anyWidth = Target.Bits == Width::Bits32 && Allow32bitTo64bitUpdates;
  const auto binary = anyWidth ? update.PlatformBinaryAny(Target.Platform) : update.PlatformBinarySameBitness(Target);
  if (!binary || update.StageCode() < AllowedStage || currentVersion >= update.VersionAsDouble()) return false;
  return !update.Expires ||
         !update.IsExpiredAt(std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()));
}

bool UpdateChecker::IsIgnored(const std::string& version) const {
  return std::ranges::any_of(preferences_.IgnoreVersionsPref,
                             [&](const std::string& ignored) { return toolkit::EqualIgnoringCase(ignored, version); });
}

UpdateChecker::Next UpdateChecker::HandleError(const std::string& message) {
  if (IsAllowed(kAllowErrorDialog)) {
    toolkit::MessageDialog dialog;
    dialog.ActionButton = {.Caption = KajuLocale::kTryAgainButton(), .Visible = true};
    dialog.CancelButton = {.Caption = KajuLocale::kLaterButton(), .Visible = true};
    dialog.Message = KajuLocale::kErrorOccurredMessage();
    dialog.Explanation = message;
    if (dialog.ShowModal() == toolkit::DialogButton::Action) return Next::FetchAgain;
  }
  result_ = ResultType::Error;
  return Next::Return;
}

bool UpdateChecker::IsAllowed(std::uint32_t value) const {
  return value == 0 ? AllowedInteraction == 0 : (AllowedInteraction & value) == value;
}

}  // namespace Kaju
