#include "toolkit/qt/DisplayText.h"

#include <algorithm>

#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr qsizetype tabWidth = 8;

bool IsControl(QChar character) {
  const char16_t code = character.unicode();
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// 00..1F and 7F have their own symbols in the block “Control Pictures”; all other controls are shown as the symbol for
/// a line break (U+2424).
QChar PictureOf(QChar control) {
  const char16_t code = control.unicode();
  if (code < 0x20) return QChar(static_cast<char16_t>(0x2400 + code));
  return code == 0x7F ? QChar(0x2421) : QChar(0x2424);
}

}  // namespace

QString DisplayText(std::string_view text) {
  QString line = ToQt(text);
  if (std::none_of(line.cbegin(), line.cend(), IsControl)) return line;

  QString shown;
  shown.reserve(line.size() + tabWidth);
  for (const QChar character : line) {
    if (character == '\t') {
      shown.append(QString(tabWidth - shown.size() % tabWidth, ' '));
    } else {
      shown.append(IsControl(character) ? PictureOf(character) : character);
    }
  }
  return shown;
}

QString DisplayText(std::string_view text, std::size_t most) {
  const std::string_view start = FirstCharacters(text, most);
  return start.size() == text.size() ? DisplayText(text) : DisplayText(start) + QChar(0x2026);
}

QString DisplayName(std::string_view text) {
  constexpr std::size_t longestName = 100;
  return DisplayText(text, longestName);
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (!IsContinuation(text[end]) && count-- == 0) break;
  }
  return text.substr(0, end);
}

}  // namespace toolkit::qt
