#include "toolkit/qt/Translations.h"

#include <utility>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QTranslator>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

/// The language of the texts in the program.
constexpr QLatin1String ownLanguage("en");

/// The language itself, then without its region, as in "pt-BR" and "pt".
QStringList WithParents(QString language) {
  QStringList names;
  for (language.replace('_', '-'); !language.isEmpty(); language.truncate(language.lastIndexOf('-'))) {
    names.append(language);
    if (!language.contains('-')) break;
  }
  return names;
}

/// Beside the program, or in the data folder of an installed package.
QString TranslationsFolder() {
  const QString programs = QCoreApplication::applicationDirPath();
  const QString beside = programs + QStringLiteral("/translations");
  const QString shared = programs + "/../share/" + ToQt(Platform::Current().Program().Id) + "/translations";
  return QFileInfo::exists(beside) ? beside : shared;
}

}  // namespace

Translations::Translations() : Translations(TranslationsFolder(), QLocale().uiLanguages()) {}

Translations::Translations(QString folder, QStringList userLanguages)
    : folder_(std::move(folder)), userLanguages_(std::move(userLanguages)) {}

Translations::~Translations() = default;

std::optional<std::string> Translations::Find(const std::string& key, const std::string& language) {
  const QStringList wanted = language.empty() ? userLanguages_ : QStringList(ToQt(language));
  for (const QString& one : wanted) {
    for (const QString& name : WithParents(one)) {
      if (name == ownLanguage) return std::nullopt;
      const QTranslator* file = FileFor(name);
      const QString text = file == nullptr ? QString() : file->translate("", key.c_str());
      if (!text.isEmpty()) return FromQt(text);
    }
  }
  return std::nullopt;
}

const QTranslator* Translations::FileFor(const QString& language) {
  const auto [place, isNew] = files_.try_emplace(language);
  if (isNew && !language.contains('/')) {
    auto file = std::make_unique<QTranslator>();
    if (file->load(folder_ + QLatin1Char('/') + language + QStringLiteral(".qm"))) place->second = std::move(file);
  }
  return place->second.get();
}

}  // namespace toolkit::qt
