#pragma once

#include <array>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace tour {

/// Folders for the program's temporary files and for its data, so that the tour reads and writes nothing of the user's.
/// They must be there before the program starts, and go with this object.
class OwnFolders {
 public:
  /// Throws std::runtime_error if they cannot be made.
  OwnFolders();
  OwnFolders(const OwnFolders&) = delete;
  OwnFolders& operator=(const OwnFolders&) = delete;
  ~OwnFolders();

  /// A folder for other things.
  [[nodiscard]] QString Scratch() const { return folder_.filePath("scratch"); }

 private:
  enum class Replaces { Always, OnlyNothing };
  struct Variable {
    const char* name;
    const char* folder;
    Replaces replaces;
    QByteArray before{};
  };

  QTemporaryDir folder_;
  // Where the desktop gives no folder for a session, Qt makes one among the temporary files.
  std::array<Variable, 3> variables_{{{"TMPDIR", "temporary", Replaces::Always},
                                      {"XDG_DATA_HOME", "data", Replaces::Always},
                                      {"XDG_RUNTIME_DIR", "session", Replaces::OnlyNothing}}};
};

}  // namespace tour
