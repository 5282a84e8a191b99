#include <map>
#include <set>

#include "tests/desktop/Desktop.h"
#include "toolkit/DesktopTexts.h"
#include "update/check/KajuException.h"
#include "update/check/KajuLocale.h"

namespace {

using Texts = std::map<std::string, std::string>;  // by their keys

Texts English() {
  using Kaju::KajuException;
  std::vector all{KajuException::kErrorCantFindLibsFolder, KajuException::kErrorImproperFunction,
                  KajuException::kErrorMissingUpdateURL};
  all.insert(all.end(), std::begin(KajuLocale::all), std::end(KajuLocale::all));
  all.insert(all.end(), std::begin(DesktopTexts::all), std::end(DesktopTexts::all));
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

using Translated = Desktop;

TEST_F(Translated, HasEveryTextOfEveryFaultlessFile) {
  const QStringList files = QDir(TRANSLATIONS).entryList({"*.ts"});
  EXPECT_GE(files.size(), 5);
  for (const QString& name : files) {
    SCOPED_TRACE(name.toStdString());
    QFile file(TRANSLATIONS "/" + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    Texts sources;
    std::string key;
    while (!reader.atEnd()) {
      if (reader.readNext() != QXmlStreamReader::StartElement) continue;
      const auto attributes = reader.attributes();
      if (reader.name() == QLatin1String("message")) key = attributes.value("id").toString().toStdString();
      if (reader.name() == QLatin1String("source")) {
        EXPECT_TRUE(sources.emplace(key, reader.readElementText().toStdString()).second) << key << " comes twice";
      }
      if (reader.name() != QLatin1String("translation")) continue;
      EXPECT_FALSE(attributes.hasAttribute("type")) << key << " is not finished";
      const std::string text = reader.readElementText().trimmed().toStdString();
      EXPECT_NE(text, "") << key;
      EXPECT_EQ(Marks(text), Marks(sources[key])) << key;
      EXPECT_EQ(platform.Translation(key, name.section('.', 0, 0).toStdString()), text);
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_EQ(sources, English());
  }
}

}  // namespace
