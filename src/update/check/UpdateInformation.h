#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "toolkit/Picture.h"
#include "toolkit/StillWanted.h"
#include "toolkit/Variant.h"
#include "update/check/BinaryInformation.h"
#include "update/check/BuildTarget.h"

namespace Kaju {

/// One offered version: an element of the update document. The public fields are members of its JSON object, which also
/// has the files for the platforms; unknown members are ignored.
class UpdateInformation final : public Information {
 public:
  using BinaryPointer = std::shared_ptr<BinaryInformation>;

  std::string AppName;
  /// The time from which the update is not offered any more; see MomentOf().
  std::optional<std::string> Expires;
  std::string ImageURL;
  std::string MinimumRequiredVersion;
  std::string ReleaseNotes;
  bool RequiresPayment = false;
  bool UseTransparency = true;
  std::string Version;

  /// The keys of the files, in the order in which they are written.
  static constexpr std::array<std::string_view, 5> BinaryNames{"MacBinary", "WindowsBinary", "LinuxBinary",
                                                               "WindowsBinary64bit", "LinuxBinary64bit"};

  UpdateInformation() = default;
  /// Reads an element of the document. Throws a toolkit::RuntimeException if it is not an object, or a member has a
  /// wrong type. Values are not validated.
  explicit UpdateInformation(const toolkit::JSONItem& data);
  /// A deep copy of a record of this type; throws a KajuException for another type.
  explicit UpdateInformation(const Information& other) : UpdateInformation(RequireLike<UpdateInformation>(other)) {}
  UpdateInformation(const UpdateInformation& other);
  UpdateInformation& operator=(const UpdateInformation&) = delete;
  ~UpdateInformation() override = default;

  /// 0 to 3 for development, alpha, beta and final, by the letter in Version.
  [[nodiscard]] int StageCode() const;
  /// Throws a KajuException if Version is malformed.
  [[nodiscard]] double VersionAsDouble() const;
  /// Whether a program with that version, as a number, must not skip this update. Throws a KajuException if
  /// MinimumRequiredVersion is malformed.
  [[nodiscard]] bool IsRequiredFor(double version) const;

  /// Throws a KajuException if Expires is malformed.
  [[nodiscard]] bool IsExpiredAt(std::chrono::sys_seconds moment) const;

  /// The picture at ImageURL, fetched on the first call; nullptr if there is none or fetching fails, in which case the
  /// next call tries again. Runs the event loop, up to 5 seconds without progress per request and while the picture is
  /// decoded, and gives up once `wanted` returns false.
  [[nodiscard]] std::shared_ptr<const toolkit::Picture> Image(const toolkit::StillWanted& wanted = {}) const;

  /// The file for a platform; nullptr if there is none. On macOS one file serves both widths.
  [[nodiscard]] BinaryPointer PlatformBinary32bit(System system = BuildTarget::Running().Platform) const;
  [[nodiscard]] BinaryPointer PlatformBinary64bit(System system = BuildTarget::Running().Platform) const;
  /// The file for 64 bits, or else that for 32 bits.
  [[nodiscard]] BinaryPointer PlatformBinaryAny(System system = BuildTarget::Running().Platform) const;
  [[nodiscard]] BinaryPointer PlatformBinarySameBitness(BuildTarget target = BuildTarget::Running()) const;

  /// The files in the order of BinaryNames; nullptr for missing ones.
  [[nodiscard]] const std::array<BinaryPointer, 5>& Binaries() const { return binaries_; }
  /// The file with one of BinaryNames; a missing one is created empty. Throws a toolkit::KeyNotFoundException for
  /// another name.
  BinaryPointer FetchBinary(std::string_view name);
  /// Removes the file with one of BinaryNames. Throws like FetchBinary().
  void RemoveBinary(std::string_view name);

  /// A stored property by its name, or "StageCode" or "VersionAsDouble". Throws a toolkit::KeyNotFoundException for
  /// another name.
  [[nodiscard]] toolkit::Variant GetByName(std::string_view name) const;
  /// Sets a stored property by its name. For a Boolean the text "yes" is also true. Throws a
  /// toolkit::KeyNotFoundException for another name, and a toolkit::TypeMismatchException for a value that cannot be
  /// converted; nothing is changed then.
  void SetByName(std::string_view name, const toolkit::JSONItem& value);

  [[nodiscard]] toolkit::JSONItem ConvertToJSON() const override;

 protected:
  bool Event_IsInvalid(std::string& reason) const override;

 private:
  std::array<BinaryPointer, BinaryNames.size()> binaries_;
  mutable std::shared_ptr<const toolkit::Picture> image_;
};

}  // namespace Kaju
