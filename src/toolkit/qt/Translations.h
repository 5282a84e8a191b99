#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QString>
#include <QStringList>

class QTranslator;

namespace toolkit::qt {

/// The program's translation files: translations/LANGUAGE.qm, in Qt's format with the keys as message ids. Each file is
/// loaded once, when the first text is requested in its language.
class Translations {
 public:
  /// Uses the folder beside the program, or else that of an installed package, and the user's current languages.
  Translations();
  Translations(QString folder, QStringList userLanguages);
  Translations(const Translations&) = delete;
  Translations& operator=(const Translations&) = delete;
  ~Translations();

  /// See Platform::Translation().
  [[nodiscard]] std::optional<std::string> Find(const std::string& key, const std::string& language);

 private:
  const QTranslator* FileFor(const QString& language);

  QString folder_;
  QStringList userLanguages_;
  std::map<QString, std::unique_ptr<QTranslator>> files_;
};

}  // namespace toolkit::qt
