#pragma once

#include "toolkit/FolderItem.h"
#include "toolkit/StillWanted.h"
#include "update/check/BinaryInformation.h"

namespace Kaju {

enum class FileVerdict { Genuine, Corrupted, Uncheckable };

/// Checks whether `file` is the one that the document offers: its size and digests must be equal to those given there.
/// Where the system disables MD5, SHA-256 alone decides; without one, the file cannot be checked. Runs due events; the
/// result is meaningless once `wanted` returns false.
[[nodiscard]] FileVerdict VerifyFile(const toolkit::FolderItem& file, const BinaryInformation& binary,
                                     const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
