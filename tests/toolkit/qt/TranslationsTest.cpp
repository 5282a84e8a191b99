#include <map>
#include <set>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/DesktopTexts.h"
#include "toolkit/qt/Translations.h"
#include "update/check/KajuException.h"
#include "update/check/KajuLocale.h"

namespace {

using Texts = std::map<std::string, std::string>;  // by their keys

Texts English() {
  using Kaju::KajuException;
  std::vector all{KajuException::kErrorCantFindLibsFolder, KajuException::kErrorImproperFunction,
                  KajuException::kErrorMissingUpdateURL};
  all.insert(all.end(), std::begin(KajuLocale::All), std::end(KajuLocale::All));
  all.insert(all.end(), std::begin(DesktopTexts::All), std::end(DesktopTexts::All));
  Texts texts;
  for (const auto& text : all) texts.emplace(text.Key, text.Default);
  return texts;
}

/// What a translation must keep: the placeholders, access keys and ampersands, in any order.
std::multiset<std::string> Marks(const std::string& text) {
  static const QRegularExpression mark(R"(<<\w+>>|&&|&(?=\S))");
  std::multiset<std::string> marks;
  for (const auto& match : mark.globalMatch(QString::fromStdString(text))) marks.insert(match.captured().toStdString());
  return marks;
}

/// A file for translators.
struct Translated {
  Texts Sources, Translations;
  int Count = 0, Unfinished = 0;

  explicit Translated(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    std::string key;
    while (!reader.atEnd()) {
      if (reader.readNext() != QXmlStreamReader::StartElement) continue;
      const auto attributes = reader.attributes();
      if (reader.name() == QLatin1String("message")) ++Count, key = attributes.value("id").toString().toStdString();
      if (reader.name() == QLatin1String("source")) Sources[key] = reader.readElementText().toStdString();
      if (reader.name() != QLatin1String("translation")) continue;
      Unfinished += attributes.hasAttribute("type") ? 1 : 0;
      Translations[key] = reader.readElementText().trimmed().toStdString();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  }
};

using TranslatedProgram = Desktop;

TEST_F(TranslatedProgram, HasEveryTextOfEveryFaultlessFile) {
  const QStringList files = QDir(TRANSLATIONS).entryList({"*.ts"});
  EXPECT_GE(files.size(), 5);
  for (const QString& name : files) {
    SCOPED_TRACE(name.toStdString());
    const Translated file(TRANSLATIONS "/" + name);
    EXPECT_EQ(file.Sources, English());
    EXPECT_EQ(file.Translations.size(), file.Sources.size());
    EXPECT_EQ(std::tuple(file.Count, file.Unfinished), std::tuple(static_cast<int>(English().size()), 0));
    for (const auto& [key, text] : file.Translations) {
      EXPECT_NE(text, "") << key;
      EXPECT_EQ(Marks(text), Marks(file.Sources.at(key))) << key;
      EXPECT_EQ(platform.Translation(key, name.section('.', 0, 0).toStdString()), text);
    }
  }
}

TEST_F(TranslatedProgram, SpeaksTheFirstLanguageThatItKnows) {
  const std::tuple<QStringList, const char*, const char*> rows[] = {
      // clang-format off
      {{}, "de", "Später"},        {{}, "de-AT", "Später"},   {{}, "pt-BR", "Mais tarde"},  {{"tlh", "es-MX"}, "", "Más tarde"},
      {{}, "pt_BR", "Mais tarde"}, {{"fr"}, "ja", "後で"},     {{"de", "en"}, "", "Später"}, {{"en-GB", "en", "de"}, "", "nothing"},
      {{"de"}, "en", "nothing"},   {{"de"}, "tlh", "nothing"},
      // clang-format on
  };
  for (const auto& [userLanguages, language, later] : rows) {
    toolkit::qt::Translations translations(QCoreApplication::applicationDirPath() + "/translations", userLanguages);
    EXPECT_EQ(translations.Find("KajuLocale.kLaterButton", language).value_or("nothing"), later)
        << language << ", " << userLanguages.join(' ').toStdString();
  }
  EXPECT_EQ(KajuLocale::kLaterButton("de") + KajuLocale::kLaterButton("tlh"), "SpäterLater");
}

}  // namespace
