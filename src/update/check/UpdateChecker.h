#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "toolkit/FolderItem.h"
#include "toolkit/Picture.h"
#include "update/check/BuildTarget.h"
#include "update/check/UpdatePreferences.h"
#include "update/check/UpdatePresenter.h"

namespace Kaju {

/// Checks for updates: fetches the signed document, decides which of the offered versions concern this program, and
/// passes them to the presenter. Must be created with std::make_shared. The versions that the user skipped are stored
/// in a file, which the constructor reads and the destructor writes.
class UpdateChecker : public std::enable_shared_from_this<UpdateChecker> {
 public:
  enum class ResultType {
    NotYetChecked = -9999,
    UpdateWindowOpen = -100,
    UnsupportedOS = -70,
    /// The program's files cannot be replaced.
    NoWritePermission = -50,
    Error = -1,
    NoUpdateAvailable = 0,
    /// All offers are versions that the user skipped.
    IgnoredUpdateAvailable = 1,
    UpdateAvailable = 2,
    /// One of the offers is required.
    RequiredUpdateAvailable = 3,
  };

  /// Bits of AllowedInteraction: what may be shown.
  static constexpr std::uint32_t kAllowErrorDialog = 8;
  static constexpr std::uint32_t kAllowUpdateWindow = 128;

  /// Whether a 32-bit build may take a 64-bit update.
  bool Allow32bitTo64bitUpdates = true;
  std::uint32_t AllowedInteraction = 65535;
  /// The lowest stage to offer, 0 to 3 for development, alpha, beta and final.
  int AllowedStage = 0;
  /// Whether to follow the redirects of UpdateURL.
  bool AllowRedirection = false;
  /// The default for offers without a picture, and whether it is drawn with transparency.
  std::shared_ptr<const toolkit::Picture> DefaultImage;
  bool DefaultUseTransparency = true;
  /// Whether to omit versions that the user skipped.
  bool HonorIgnored = true;
  /// Whether cancelling a required update ends the program.
  bool QuitOnCancelIfRequired = true;
  /// The key of the document's signature, in the form of toolkit::RSAVerifySignature().
  std::string ServerPublicRSAKey;
  std::string UpdateURL;
  /// The platform to check for: that of the running build, except in tests.
  BuildTarget Target = BuildTarget::Running();

  /// Throws a toolkit::RuntimeException if the file exists but does not hold preferences; it is left unchanged. Without
  /// a presenter, Result() alone reports offers.
  UpdateChecker(const toolkit::FolderItem& preferencesFolder, std::string_view preferencesFilename,
                std::shared_ptr<UpdatePresenter> presenter = nullptr);
  UpdateChecker(const UpdateChecker&) = delete;
  UpdateChecker& operator=(const UpdateChecker&) = delete;
  /// Writes the preferences, if they have changed or the file does not exist. If that fails, the file is left
  /// unchanged.
  ~UpdateChecker();

  /// Performs one complete check. Runs the event loop while it waits; the checker must be kept alive meanwhile. Throws
  /// a KajuException if UpdateURL is blank.
  void Execute();
  /// Processes `jsonString` as if it were a genuine document and the program older than every version.
  void TestUpdate(const std::string& jsonString);
  [[nodiscard]] ResultType Result() const { return result_; }
  /// Whether the last run was a TestUpdate().
  [[nodiscard]] bool DryRun() const { return dryRun_; }
  [[nodiscard]] bool UpdateWindowIsOpen() const { return presenter_ && presenter_->IsOpen(); }

  /// Omits this version from now on. An empty or already ignored version changes nothing.
  void IgnoreVersion(const std::string& version);
  void ResetIgnored() { preferences_.IgnoreVersionsPref.clear(); }

 private:
  enum class Next { Return, FetchAgain };

  static bool OSIsSupported() { return true; }
  /// Why a check is pointless; std::nullopt if it is not. Runs the event loop.
  [[nodiscard]] std::optional<ResultType> Obstacle() const;
  Next FetchAndProcess(const std::string& url);
  Next ProcessUpdateData(std::string_view raw);
  void Decide(std::string_view raw);
  [[nodiscard]] bool Concerns(const UpdateInformation& update, double currentVersion) const;
  [[nodiscard]] bool IsIgnored(const std::string& version) const;
  Next HandleError(const std::string& message);
  [[nodiscard]] bool IsAllowed(std::uint32_t value) const;

  toolkit::FolderItem prefFile_;
  std::shared_ptr<UpdatePresenter> presenter_;
  UpdatePreferences preferences_;
  UpdatePreferences savedPreferences_;
  bool dryRun_ = false;
  ResultType result_ = ResultType::NotYetChecked;
};

}  // namespace Kaju
