#pragma once

#include <optional>
#include <string>

#include "toolkit/Event.h"
#include "toolkit/FolderItem.h"
#include "toolkit/Shell.h"
#include "update/check/BuildTarget.h"

namespace Kaju {

/// Packs and unpacks zip archives with the operating system's tools, one operation at a time. An asynchronous operation
/// reports its end by the events, a synchronous one only by ErrorCode().
class ZipShell : public toolkit::Shell {
 public:
  enum class Operation { None = 0, Compress = 1, Decompress = 2 };

  /// The created archive.
  toolkit::Event<const toolkit::FolderItem&> CompressCompleted;
  /// The archive, and the folder with its content.
  toolkit::Event<const toolkit::FolderItem&, const toolkit::FolderItem&> DecompressCompleted;
  /// The tool has failed: see ErrorCode() and Result().
  toolkit::Event<> Error;
  /// Whose tools are used: those of the running system, except in tests.
  System Platform = BuildTarget::Running().Platform;

  /// Packs `source`, with its own name as the top entry. `destination` is the archive, or a folder for an archive that
  /// is named after the source; by default the archive is created beside the source.
  void Compress(const toolkit::FolderItem& source, const std::optional<toolkit::FolderItem>& destination);
  /// Unpacks `zipFile` into the folder `destination`, which is created if necessary; by default beside the archive. On
  /// Linux an archive is rejected if it has a name outside the folder, a duplicate name, a link that leads outside,
  /// anything but files, folders and links, set-user-id bits, encrypted entries, more than 100,000 entries or more than
  /// 4 GB, or if a tool needs more than five minutes of computing or 1 GB of memory. The user can write to every folder
  /// of the result.
  void Decompress(const toolkit::FolderItem& zipFile, const std::optional<toolkit::FolderItem>& destination);
  /// The first name in the archive's listing, without a trailing slash; empty if there is none. Warnings of the tool
  /// are ignored. Runs the event loop until the tool has ended.
  [[nodiscard]] static std::string ContentsOf(const toolkit::FolderItem& zipFile);
  /// Whether the last operation failed because the disk was full.
  [[nodiscard]] bool FoundDiskFull() const;
  /// The operation that the asynchronous shell is running.
  [[nodiscard]] Operation CurrentOperation() const { return currentOperation_; }
  /// Only for Windows; throws a KajuException elsewhere.
  static void WindowsUnzip(const toolkit::FolderItem& zipFile, const toolkit::FolderItem& destination);

 protected:
  void Event_Completed() override { DoCompleted(); }

 private:
  void DoCompleted();

  Operation currentOperation_ = Operation::None;
  std::optional<toolkit::FolderItem> result_;
  std::optional<toolkit::FolderItem> zipFile_;
};

}  // namespace Kaju
