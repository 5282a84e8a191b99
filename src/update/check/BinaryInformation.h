#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "update/check/Information.h"

namespace Kaju {

/// A downloadable file of an update.
class BinaryInformation final : public Information {
 public:
  std::string ExecutableName;
  /// MD5 of the file, in hexadecimal digits of either case.
  std::string Hash;
  /// SHA-256 of the file, in the same form.
  std::optional<std::string> SHA256;
  /// The length of the file in bytes.
  std::optional<std::uint64_t> Size;
  std::string URL;

  explicit BinaryInformation(bool isExecutableNameRequired) : isExecutableNameRequired_(isExecutableNameRequired) {}
  /// Reads the members of an object that are named like the public fields. Throws a toolkit::RuntimeException if `data`
  /// is not an object or a member cannot be converted.
  BinaryInformation(bool isExecutableNameRequired, const toolkit::JSONItem& data);
  /// Copies a record of this type; throws a KajuException for another type.
  explicit BinaryInformation(const Information& other) : BinaryInformation(RequireLike<BinaryInformation>(other)) {}
  BinaryInformation(const BinaryInformation&) = default;
  BinaryInformation& operator=(const BinaryInformation&) = default;
  ~BinaryInformation() override = default;

  /// The last component of the URL, decoded; empty if there is no URL. Untrusted: may be any text.
  [[nodiscard]] std::string FileName() const;
  /// Whether FileName() and ExecutableName are plain names of entries in the folder where they are used: not blank, "."
  /// or "..", and without slashes, backslashes and control characters. ExecutableName may be empty for a Mac.
  [[nodiscard]] bool HasUsableNames() const;

  [[nodiscard]] toolkit::JSONItem ConvertToJSON() const override;

 protected:
  bool Event_IsInvalid(std::string& reason) const override;

 private:
  bool isExecutableNameRequired_;
};

}  // namespace Kaju
