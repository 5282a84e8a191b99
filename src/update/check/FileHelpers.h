#pragma once

#include <string>

#include "toolkit/Cryptography.h"
#include "toolkit/FolderItem.h"
#include "toolkit/StillWanted.h"
#include "update/check/BuildTarget.h"

namespace Kaju {

// The long walks serve the event loop between their steps, so that handlers run meanwhile.

/// The digest of the file's bytes as hexadecimal text, two digits a byte; empty if the file cannot be read, the system
/// leaves that digest out, or it is no longer wanted. Holds one megabyte of the file at a time.
[[nodiscard]] std::string HashOfFile(const toolkit::FolderItem& file, const toolkit::StillWanted& wanted = {},
                                     toolkit::Digest::Kind kind = toolkit::Digest::Kind::MD5);

/// Removes `item` and, if it is a folder, all that is in it; a link goes, not what it points to. An item that is
/// missing or not writeable stays, with all that is in it, and so does what cannot be deleted: neither is an error.
void DeleteRecursive(const toolkit::FolderItem& item);

/// The same for a folder of our own, of which nothing is to stay: folders in it are made writeable first.
void DeleteWholly(const toolkit::FolderItem& item);

/// Whether `item` and, if it is a folder, everything in it can be written. Links are not followed.
[[nodiscard]] bool IsWriteableRecursive(const toolkit::FolderItem& item);

/// A new, empty folder that only this user can enter. Throws a toolkit::RuntimeException if none can be made.
[[nodiscard]] toolkit::FolderItem GetTemporaryFolder();

/// What an update replaces: the application bundle on macOS, elsewhere the executable itself.
[[nodiscard]] toolkit::FolderItem TrueExecutableFile();
/// The same for an executable at a given place. A Mac executable outside of any bundle stands for itself.
[[nodiscard]] toolkit::FolderItem TrueExecutableFile(const toolkit::FolderItem& executable, System system);

}  // namespace Kaju
