#pragma once

#include <optional>
#include <string>

#include "toolkit/Event.h"
#include "toolkit/FolderItem.h"
#include "toolkit/Shell.h"
#include "update/check/BuildTarget.h"

namespace Kaju {

/// Packs and unpacks zip archives by the archive tools of the operating system, one operation at a time. An
/// asynchronous operation tells its end by the events; a synchronous one by ErrorCode() alone.
class ZipShell : public toolkit::Shell {
 public:
  enum class Operation { None = 0, Compress = 1, Decompress = 2 };

  /// The archive that was made.
  toolkit::Event<const toolkit::FolderItem&> CompressCompleted;
  /// The archive, and the folder that now holds what was in it.
  toolkit::Event<const toolkit::FolderItem&, const toolkit::FolderItem&> DecompressCompleted;
  /// The tool has failed: see ErrorCode() and Result().
  toolkit::Event<> Error;
  /// Whose tools are used: those of the running system, unless a test says otherwise.
  System Platform = BuildTarget::Running().Platform;

  /// Packs `source`, with its own name as the top entry. `destination` is the archive, or a folder in which it is named
  /// after the source; without one it is made beside the source.
  void Compress(const toolkit::FolderItem& source, const std::optional<toolkit::FolderItem>& destination);
  /// Unpacks `zipFile` into the folder `destination`, which is made if it is missing, or beside the archive. On Linux
  /// an archive fails that holds a name outside of the folder, a name twice, a link that leads outside, anything that
  /// is no file, folder or link, set-user-id bits, encrypted entries, more than 100,000 entries or more than 4 GB, or
  /// what takes a tool five minutes of computing or 1 GB of memory. The user may change every folder of the result.
  void Decompress(const toolkit::FolderItem& zipFile, const std::optional<toolkit::FolderItem>& destination);
  /// The first name in the archive's list, without a "/" at its end; empty if there is none. A lister that only warns
  /// is believed. Waits for the tool, and
  /// the event loop runs meanwhile.
  [[nodiscard]] static std::string ContentsOf(const toolkit::FolderItem& zipFile);
  /// Whether the last operation failed since there was no space left.
  [[nodiscard]] bool FoundDiskFull() const;
  /// What the asynchronous shell is doing.
  [[nodiscard]] Operation CurrentOperation() const { return currentOperation_; }
  /// For Windows only; throws a KajuException elsewhere.
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
