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
  /// MD5 of the file, in hexadecimal text of either case.
  std::string Hash;
  /// SHA-256 of the file, in the same form.
  std::optional<std::string> SHA256;
  /// How many bytes the file has.
  std::optional<std::uint64_t> Size;
  std::string URL;

  explicit BinaryInformation(bool isExecutableNameRequired) : isExecutableNameRequired_(isExecutableNameRequired) {}
  /// From the members of an object that are called as the public fields. Throws a toolkit::RuntimeException if `data`
  /// is no object or a member does not convert.
  BinaryInformation(bool isExecutableNameRequired, const toolkit::JSONItem& data);
  /// A copy of a record of this type; throws a KajuException for another one.
  explicit BinaryInformation(const Information& other) : BinaryInformation(RequireLike<BinaryInformation>(other)) {}
  BinaryInformation(const BinaryInformation&) = default;
  BinaryInformation& operator=(const BinaryInformation&) = default;
  ~BinaryInformation() override = default;

  /// The last component of the URL, decoded; empty if there is no URL. May be any text, a dangerous one included.
  [[nodiscard]] std::string FileName() const;
  /// Whether FileName() and ExecutableName each name an entry of the folder in which they are used: neither blank, "."
  /// nor "..", and without slashes, backslashes and control characters. A Mac's file needs no executable.
  [[nodiscard]] bool HasUsableNames() const;

  [[nodiscard]] toolkit::JSONItem ConvertToJSON() const override;

 protected:
  bool Event_IsInvalid(std::string& reason) const override;

 private:
  bool isExecutableNameRequired_;
};

}  // namespace Kaju
