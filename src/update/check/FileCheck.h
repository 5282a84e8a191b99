#pragma once

#include "toolkit/FolderItem.h"
#include "toolkit/StillWanted.h"
#include "update/check/BinaryInformation.h"

namespace Kaju {

enum class FileVerdict { Genuine, Corrupted, Uncheckable };

/// Whether `file` is the one that the document offers: all that it tells of the file, its size and its digests, must be
/// right. Where the system leaves MD5 out, SHA-256 alone decides; without one, the file cannot be checked. Serves the
/// event loop; of no use once it is no longer wanted.
[[nodiscard]] FileVerdict VerifyFile(const toolkit::FolderItem& file, const BinaryInformation& binary,
                                     const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
