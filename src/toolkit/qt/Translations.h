#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QString>
#include <QStringList>

class QTranslator;

namespace toolkit::qt {

/// The translation files of the program: translations/LANGUAGE.qm, in Qt's own format with the keys as message ids.
/// A file is looked for once, when the first text is asked for in its language.
class Translations {
 public:
  /// The folder beside the program, or else that of a package, and the user's languages as they are now.
  Translations();
  Translations(QString folder, QStringList userLanguages);
  Translations(const Translations&) = delete;
  Translations& operator=(const Translations&) = delete;
  ~Translations();

  /// As Platform::Translation().
  [[nodiscard]] std::optional<std::string> Find(const std::string& key, const std::string& language);

 private:
  const QTranslator* FileFor(const QString& language);

  QString folder_;
  QStringList userLanguages_;
  std::map<QString, std::unique_ptr<QTranslator>> files_;
};

}  // namespace toolkit::qt
