#pragma once

#include <QString>
#include <QTemporaryDir>

namespace tour {

/// Folders for the program's temporary files and for its data, so that the tour reads and writes nothing of the user's.
/// They must be there before the program starts, and go with this object; the environment names them until the end.
class OwnFolders {
 public:
  /// Throws std::runtime_error if they cannot be made.
  OwnFolders();

  /// A folder for other things.
  [[nodiscard]] QString Scratch() const { return folder_.filePath("scratch"); }

 private:
  QTemporaryDir folder_;
};

}  // namespace tour
