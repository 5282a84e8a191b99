#include "update/check/FileCheck.h"

#include <filesystem>
#include <system_error>

#include "toolkit/Cryptography.h"
#include "toolkit/Text.h"
#include "update/check/FileHelpers.h"

using Kind = toolkit::Digest::Kind;

namespace Kaju {

FileVerdict VerifyFile(const toolkit::FolderItem& file, const BinaryInformation& binary,
                       const toolkit::StillWanted& wanted) {
  const bool hasMD5 = toolkit::Digest::IsAvailable(Kind::MD5);
  if (!hasMD5 && !binary.SHA256) return FileVerdict::Uncheckable;
  const auto isRight = [&](Kind kind, const std::string& told) {
    const std::string hash = HashOfFile(file, wanted, kind);
    return !hash.empty() && toolkit::EqualIgnoringCase(hash, told);
  };
  std::error_code unknown;
  const bool isGenuine = (!binary.Size || std::filesystem::file_size(file.Path(), unknown) == *binary.Size) &&
                         (!hasMD5 || isRight(Kind::MD5, binary.Hash)) &&
                         (!binary.SHA256 || isRight(Kind::SHA256, *binary.SHA256));
  return isGenuine ? FileVerdict::Genuine : FileVerdict::Corrupted;
}

}  // namespace Kaju
