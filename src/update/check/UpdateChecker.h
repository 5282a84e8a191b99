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

/// Looks for updates: fetches the signed document, decides which of the offered versions concern this program, and
/// hands them to the presenter. Made with std::make_shared. It remembers the versions that the user skipped in a file,
/// which it reads when it is made and writes when it goes.
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
    /// Nothing to offer but versions that the user skipped.
    IgnoredUpdateAvailable = 1,
    UpdateAvailable = 2,
    /// One of the offers is required.
    RequiredUpdateAvailable = 3,
  };

  /// Bits of AllowedInteraction: what the checker may show.
  static constexpr std::uint32_t kAllowErrorDialog = 8;
  static constexpr std::uint32_t kAllowUpdateWindow = 128;

  /// Whether a 32-bit build may take a 64-bit update.
  bool Allow32bitTo64bitUpdates = true;
  std::uint32_t AllowedInteraction = 65535;
  /// The lowest stage that is offered, 0 to 3 for development, alpha, beta and final.
  int AllowedStage = 0;
  /// Whether to follow the redirects of UpdateURL.
  bool AllowRedirection = false;
  /// The picture for offers without one, and whether it is drawn with transparency.
  std::shared_ptr<const toolkit::Picture> DefaultImage;
  bool DefaultUseTransparency = true;
  /// Whether versions that the user skipped are left out.
  bool HonorIgnored = true;
  /// Whether cancelling a required update ends the program.
  bool QuitOnCancelIfRequired = true;
  /// The key that the document must be signed with, in the form of toolkit::RSAVerifySignature().
  std::string ServerPublicRSAKey;
  std::string UpdateURL;
  /// The build that updates are looked for: the running one, unless a test says otherwise.
  BuildTarget Target = BuildTarget::Running();

  /// Throws a toolkit::RuntimeException if the file is there but does not hold preferences; it is left as it is.
  /// Without a presenter, offers show in Result() alone.
  UpdateChecker(const toolkit::FolderItem& preferencesFolder, std::string_view preferencesFilename,
                std::shared_ptr<UpdatePresenter> presenter = nullptr);
  UpdateChecker(const UpdateChecker&) = delete;
  UpdateChecker& operator=(const UpdateChecker&) = delete;
  /// Writes the preferences, if they have changed or have no file yet. A file that cannot be written stays as it is.
  ~UpdateChecker();

  /// One complete check. Runs the event loop while it waits; the checker must be held meanwhile. Throws a KajuException
  /// if UpdateURL is blank.
  void Execute();
  /// Decides over `jsonString` as if it were a genuine document and every version new.
  void TestUpdate(const std::string& jsonString);
  [[nodiscard]] ResultType Result() const { return result_; }
  /// Whether the last run was a TestUpdate().
  [[nodiscard]] bool DryRun() const { return dryRun_; }
  [[nodiscard]] bool UpdateWindowIsOpen() const { return presenter_ && presenter_->IsOpen(); }

  /// Leaves this version out from now on. An empty one, or one that is left out already, changes nothing.
  void IgnoreVersion(const std::string& version);
  void ResetIgnored() { preferences_.IgnoreVersionsPref.clear(); }

 private:
  enum class Next { Return, FetchAgain };

  static bool OSIsSupported() { return true; }
  /// Why no check is worth while. Runs the event loop.
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
