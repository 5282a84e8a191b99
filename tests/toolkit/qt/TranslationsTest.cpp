#include <algorithm>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/qt/Translations.h"
#include "update/check/KajuException.h"
#include "update/check/KajuLocale.h"

using testing::IsEmpty;
using testing::Optional;
using testing::UnorderedElementsAreArray;

namespace {

/// The English texts by their keys.
QMap<QString, QString> English() {
  using Kaju::KajuException;
  QMap<QString, QString> texts;
  const auto add = [&](const Kaju::LocalizedText& text) {
    texts[QString::fromUtf8(text.Key)] = QString::fromUtf8(text.Default);
  };
  std::ranges::for_each(KajuLocale::All, add);
  for (const auto& text : {KajuException::kErrorCantFindLibsFolder, KajuException::kErrorImproperFunction,
                           KajuException::kErrorMissingUpdateURL}) {
    add(text);
  }
  return texts;
}

/// What a translation must keep: the placeholders, access keys and ampersands, in any order.
QStringList Marks(const QString& text) {
  static const QRegularExpression mark(R"(<<\w+>>|&&|&(?=\S))");
  QStringList marks;
  for (auto match = mark.globalMatch(text); match.hasNext();) marks.append(match.next().captured());
  marks.sort();
  return marks;
}

/// A file for translators, and what is wrong with it: the end of a key, then what is wrong with its text.
struct Translated {
  QMap<QString, QString> Texts;
  std::vector<std::string> Problems;

  explicit Translated(const QString& file) {
    const QMap<QString, QString> english = English();
    QXmlStreamReader reader(file);
    QString key;
    QString source;
    const auto refuse = [&](bool isWrong, const QString& of, const char* what) {
      if (isWrong) Problems.push_back(of.section('.', -1).toStdString() + what);
    };
    while (!reader.atEnd()) {
      if (reader.readNext() != QXmlStreamReader::StartElement) continue;
      if (reader.name() == QLatin1String("message")) key = reader.attributes().value("id").toString();
      if (reader.name() == QLatin1String("source")) source = reader.readElementText();
      if (reader.name() != QLatin1String("translation")) continue;
      refuse(reader.attributes().hasAttribute("type"), key, " is unfinished");
      refuse(!english.contains(key), key, " is unknown");
      refuse(Texts.contains(key), key, " comes twice");
      refuse(source != english.value(key, source), key, " translates another text");
      Texts[key] = reader.readElementText();
      refuse(Texts[key].trimmed().isEmpty(), key, " is empty");
      refuse(Marks(Texts[key]) != Marks(source), key, " has other marks");
    }
    refuse(reader.hasError(), {}, "no XML");
    for (const QString& expected : english.keys()) refuse(!Texts.contains(expected), expected, " is missing");
  }
};

/// A faultless file, which translates English into English.
QString GoodFile() {
  const QString message = "<message id='%1'><source>%2</source><translation>%2</translation></message>";
  QString file = "<TS>";
  const auto english = English();
  for (const QString& key : english.keys()) file += message.arg(key, english[key].toHtmlEscaped());
  return file + "</TS>";
}

TEST(TranslationFiles, EveryFaultIsFound) {
  const struct {
    const char* text = "";
    const char* instead = "";
    std::vector<std::string> problems;
  } rows[] = {
      // clang-format off
      {"", "", {}},
      {"kLaterButton", "kLatestButton", {"kLatestButton is unknown", "kLaterButton is missing"}},
      {"kLaterButton", "kStopButton", {"kStopButton translates another text", "kStopButton comes twice", "kLaterButton is missing"}},
      {"<source>Later", "<source>Soon", {"kLaterButton translates another text"}},
      {"<translation>Later", "<translation> ", {"kLaterButton is empty"}},
      {"<translation>Later", "<translation type='unfinished'>Later", {"kLaterButton is unfinished"}},
      {"<translation>&amp;C", "<translation>C", {"kCancelButton has other marks"}},
      {"<translation>&amp;C", "<translation>&amp; C", {"kCancelButton has other marks"}},
      {"<translation>Quit &amp;", "<translation>Quit ", {"kQuitButton has other marks"}},
      {"available!</t", "available, &lt;&lt;AppName&gt;&gt;!</t", {"kMainNotice has other marks"}},
      {"NewVersion&gt;&gt;?</t", "ThisVersion&gt;&gt;?</t", {"kSecondaryNoticeOne has other marks"}},
      {"</TS>", "", {"no XML"}},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_THAT(Translated(GoodFile().replace(row.text, row.instead)).Problems, UnorderedElementsAreArray(row.problems))
        << row.instead;
  }
}

using TranslatedProgram = Desktop;

TEST_F(TranslatedProgram, HasEveryTextOfEveryFaultlessFile) {
  const QStringList files = QDir(TRANSLATIONS).entryList({"*.ts"});
  EXPECT_GE(files.size(), 5);
  for (const QString& name : files) {
    QFile file(TRANSLATIONS "/" + name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const Translated translated(file.readAll());
    EXPECT_THAT(translated.Problems, IsEmpty()) << name.toStdString();
    for (const QString& key : translated.Texts.keys()) {
      EXPECT_THAT(platform.Translation(key.toStdString(), name.section('.', 0, 0).toStdString()),
                  Optional(translated.Texts[key].toStdString()));
    }
  }
}

TEST_F(TranslatedProgram, SpeaksTheFirstLanguageThatItKnows) {
  const struct {
    QStringList userLanguages;
    const char* language = "";
    const char* later = nullptr;
  } rows[] = {
      // clang-format off
      {{}, "de", "Später"},       {{}, "de-AT", "Später"},      {{}, "pt-BR", "Mais tarde"},
      {{}, "pt_BR", "Mais tarde"},  {{"fr"}, "ja", "後で"},      {{"de"}, "en", nullptr},
      {{"de"}, "tlh", nullptr},   {{"de", "en"}, "", "Später"}, {{"en-GB", "en", "de"}, "", nullptr},
      {{"tlh", "es-MX"}, "", "Más tarde"},
      // clang-format on
  };
  for (const auto& row : rows) {
    toolkit::qt::Translations translations(QCoreApplication::applicationDirPath() + "/translations", row.userLanguages);
    EXPECT_EQ(translations.Find("KajuLocale.kLaterButton", row.language).value_or("nothing"),
              row.later == nullptr ? "nothing" : row.later)
        << row.language << ", " << row.userLanguages.join(' ').toStdString();
  }
}

}  // namespace
