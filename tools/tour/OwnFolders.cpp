#include "tour/OwnFolders.h"

#include <stdexcept>

#include <QDir>
#include <QFile>

namespace tour {

OwnFolders::OwnFolders() {
  const auto make = [](const QString& folder) {
    return QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  };
  bool isMade = folder_.isValid() && make(Scratch());
  const auto use = [&](const char* variable, const char* name) {
    const QString folder = folder_.filePath(name);
    isMade = isMade && make(folder);
    qputenv(variable, QFile::encodeName(folder));
  };
  use("TMPDIR", "temporary");
  use("XDG_DATA_HOME", "data");
  // Without this variable, Qt creates a folder of its own among the temporary files.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) use("XDG_RUNTIME_DIR", "session");
  if (!isMade) throw std::runtime_error("no temporary folder can be made");
}

}  // namespace tour
