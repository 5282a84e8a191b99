#pragma once

#include <string>

#include "toolkit/Cryptography.h"
#include "toolkit/FolderItem.h"
#include "toolkit/StillWanted.h"
#include "update/check/BuildTarget.h"

namespace Kaju {

/// Runs due events in breaks of long work. Returns false once the program quits.
bool ServeEvents();

// Functions that walk through folders or long files run due events between their steps, so that handlers run meanwhile.

/// The digest of the file as hexadecimal text, two digits per byte; empty if the file cannot be read, the system
/// disables the digest, or `wanted` returns false. Reads one megabyte at a time.
[[nodiscard]] std::string HashOfFile(const toolkit::FolderItem& file, const toolkit::StillWanted& wanted = {},
                                     toolkit::Digest::Kind kind = toolkit::Digest::Kind::MD5);

/// Deletes `item` and, if it is a folder, its content; of a link only the link itself. An item that is missing or not
/// writeable is skipped, with its content, and so is whatever cannot be deleted: neither is an error.
void DeleteRecursive(const toolkit::FolderItem& item);

/// The same for a folder of our own that must be deleted completely: makes its folders writeable first.
void DeleteWholly(const toolkit::FolderItem& item);

/// Whether `item` and, if it is a folder, its whole content can be written. Links are not followed.
[[nodiscard]] bool IsWriteableRecursive(const toolkit::FolderItem& item);

/// Creates an empty folder that only this user can enter. Throws a toolkit::RuntimeException if that fails.
[[nodiscard]] toolkit::FolderItem GetTemporaryFolder();

/// What an update replaces: on macOS the application bundle, elsewhere the executable.
[[nodiscard]] toolkit::FolderItem TrueExecutableFile();
/// The same for a given executable. On macOS, an executable outside any bundle is returned itself.
[[nodiscard]] toolkit::FolderItem TrueExecutableFile(const toolkit::FolderItem& executable, System system);

}  // namespace Kaju
