#include "tour/Conditions.h"

#include <QProgressBar>
#include <QTextBlock>
#include <QTextEdit>

#include "tour/Screen.h"

namespace tour {
namespace {

QString If(bool isWrong, const QString& text) { return isWrong ? text : QString(); }

/// A picture that has not been loaded has at most one pixel.
int MissingPictures(const QTextDocument& page) {
  int missing = 0;
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); part != block.end(); ++part) {
      const QTextImageFormat image = part.fragment().charFormat().toImageFormat();
      if (!image.isValid()) continue;
      const auto picture = page.resource(QTextDocument::ImageResource, QUrl(image.name())).value<QPixmap>();
      if (picture.width() <= 1) ++missing;
    }
  }
  return missing;
}

}  // namespace

Condition Visible(const QString& name) {
  return [name] { return If(screen::Find(name) == nullptr, name + " is not to be seen"); };
}

Condition Enabled(const QString& name) {
  return [name] {
    const QWidget* part = screen::Find(name);
    return If(part == nullptr || !part->isEnabled(), name + " is not enabled");
  };
}

Condition Says(const QString& name, const QString& part) {
  return [=] {
    const QWidget* shown = screen::Find(name);
    const QString said = shown == nullptr ? QString() : screen::TextOf(*shown);
    return If(!said.contains(part), name + " says “" + said + "”, without “" + part + "”");
  };
}

Condition HasRows(const QString& list, int least) {
  return [=] {
    const int rows = screen::RowCount(list);
    return If(rows < least, QStringLiteral("%1 has %2 rows, not %3").arg(list).arg(rows).arg(least));
  };
}

Condition PicturesShown(const QString& page) {
  return [page] {
    const auto* shown = screen::FindAs<QTextEdit>(page);
    const int missing = shown == nullptr ? -1 : MissingPictures(*shown->document());
    return If(missing != 0, QStringLiteral("%1 lacks %2 pictures").arg(page).arg(missing));
  };
}

Condition PartlyDone(const QString& bar) {
  return [bar] {
    const auto* shown = screen::FindAs<QProgressBar>(bar);
    const bool isOnTheWay = shown != nullptr && shown->value() > 0 && shown->value() < shown->maximum();
    return If(!isOnTheWay, bar + " does not stand between its ends");
  };
}

Condition Closed(const QString& title) {
  return [title] { return If(screen::NewestWindow(title) != nullptr, "the window “" + title + "” is open"); };
}

}  // namespace tour
