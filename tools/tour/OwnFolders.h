#pragma once

#include <QString>
#include <QTemporaryDir>

namespace tour {

/// Folders for the program's temporary files and for its data, so that the tour reads and writes nothing of the user's.
/// To be made before the program starts. Removed with this object; the environment variables stay set.
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
