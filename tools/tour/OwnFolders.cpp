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
  for (Variable& variable : variables_) {
    variable.before = qgetenv(variable.name);
    if (variable.replaces == Replaces::OnlyNothing && !variable.before.isEmpty()) continue;
    const QString folder = folder_.filePath(variable.folder);
    isMade = isMade && make(folder);
    qputenv(variable.name, QFile::encodeName(folder));
  }
  if (!isMade) throw std::runtime_error("no temporary folder can be made");
}

OwnFolders::~OwnFolders() {
  for (const Variable& variable : variables_) {
    if (variable.before.isNull()) {
      qunsetenv(variable.name);
    } else {
      qputenv(variable.name, variable.before);
    }
  }
}

}  // namespace tour
