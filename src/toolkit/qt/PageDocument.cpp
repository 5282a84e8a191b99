#include "toolkit/qt/PageDocument.h"

#include <algorithm>
#include <cmath>

#include <QTextBlock>

namespace toolkit::qt {
namespace {

constexpr double readableContrast = 4.5;

/// How light a colour is (WCAG 2).
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

/// The palette's colour for links, moved towards that of text as far as it takes to read them. Not every dark palette
/// has a colour of its own for them.
QColor ReadableLinkColor(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text);
  QColor color = palette.color(QPalette::Link);
  for (int step = 0; step < 10 && Contrast(color, palette.color(QPalette::Base)) < readableContrast; ++step) {
    color = QColor((4 * color.red() + text.red()) / 5, (4 * color.green() + text.green()) / 5,
                   (4 * color.blue() + text.blue()) / 5);
  }
  return color;
}

QString AddressOf(std::size_t number) { return QStringLiteral("picture:%1").arg(number); }

}  // namespace

PageDocument::PageDocument(const QString& html, const QFont& font, const QPalette& palette) {
  setUndoRedoEnabled(false);
  setDefaultFont(font);
  setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(ReadableLinkColor(palette).name()));
  setHtml(html);
  for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); part != block.end(); ++part) {
      const QTextFragment fragment = part.fragment();
      if (!fragment.charFormat().isImageFormat()) continue;
      const int first = fragment.position();
      const auto place = places_.try_emplace(fragment.charFormat().toImageFormat().name(), Range{first, first}).first;
      place->second.last = first + fragment.length();
    }
  }
}

void PageDocument::Show(std::size_t number, const QPixmap& picture) {
  const QString address = AddressOf(number);
  const auto place = places_.find(address);
  if (place == places_.end()) return;
  addResource(ImageResource, QUrl(address), picture);
  const bool isFirst = changed_.last < changed_.first;
  changed_.first = isFirst ? place->second.first : std::min(changed_.first, place->second.first);
  changed_.last = std::max(changed_.last, place->second.last);
}

void PageDocument::Follow() {
  if (changed_.first <= changed_.last) markContentsDirty(changed_.first, changed_.last - changed_.first);
  changed_ = {};
}

QVariant PageDocument::loadResource(int type, const QUrl& /*name*/) {
  if (type != ImageResource) return QByteArray();
  QPixmap empty(1, 1);
  empty.fill(Qt::transparent);
  return empty;
}

}  // namespace toolkit::qt
