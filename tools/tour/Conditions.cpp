#include "tour/Conditions.h"

#include <memory>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>

#include "toolkit/qt/DialogBox.h"
#include "tour/Screen.h"

namespace tour {
namespace {

QString Quoted(const QString& text) { return "“" + text + "”"; }

QString If(bool isWrong, const QString& text) { return isWrong ? text : QString(); }

/// The message of the box that stands; empty if none does.
QString StandingMessage() {
  const QWidget* message = screen::Box() == nullptr ? nullptr : screen::Find("message");
  return message == nullptr ? QString() : screen::TextOf(*message);
}

/// None of the messages of the tour is so long that it has to scroll, and the box must be ready for keys.
QString ReasonNotToAnswer() {
  const auto* box = dynamic_cast<const toolkit::qt::DialogBox*>(screen::Box());
  if (box != nullptr && !box->TakesKeys()) return "the message box takes no keys yet";
  const auto* message = screen::FindAs<QPlainTextEdit>("message");
  const bool isWhole = message != nullptr && message->verticalScrollBar()->maximum() == 0;
  return If(!isWhole, "a part of the message is out of sight");
}

/// Of a picture that has not come, a page shows a point at most.
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

Condition EachIs(const std::vector<QString>& names, bool enabled) {
  return [names, enabled]() -> QString {
    for (const QString& name : names) {
      const QWidget* part = screen::Find(name);
      if (part == nullptr) return "there is no " + name;
      if (part->isEnabled() != enabled) return name + (enabled ? " is disabled" : " is enabled");
    }
    return {};
  };
}

}  // namespace

Condition WindowsOpen(const QString& title, int count) {
  return [=] {
    const auto open = screen::Windows(title).size();
    return If(open != count, QStringLiteral("%1 windows %2 are open, not %3").arg(open).arg(Quoted(title)).arg(count));
  };
}

Condition Says(const QString& name, const QString& text) {
  return [=]() -> QString {
    const QWidget* part = screen::Find(name);
    if (part == nullptr) return "there is no " + name;
    const QString said = screen::TextOf(*part);
    return If(said != text, name + " says " + Quoted(said) + ", not " + Quoted(text));
  };
}

Condition SaysWith(const QString& name, const QString& part) {
  return [=]() -> QString {
    const QWidget* shown = screen::Find(name);
    if (shown == nullptr) return "there is no " + name;
    const QString said = screen::TextOf(*shown);
    return If(!said.contains(part), name + " says " + Quoted(said) + ", without " + Quoted(part));
  };
}

Condition Enabled(const std::vector<QString>& names) { return EachIs(names, true); }
Condition Disabled(const std::vector<QString>& names) { return EachIs(names, false); }

Condition Visible(const QString& name) {
  return [name] { return If(screen::Find(name) == nullptr, name + " is not to be seen"); };
}

Condition Hidden(const QString& name) {
  return [name] { return If(screen::Find(name) != nullptr, name + " is to be seen"); };
}

Condition HasKeyboard(const QString& name) {
  return [name] {
    const QWidget* focus = QApplication::focusWidget();
    return If(focus == nullptr || focus->objectName() != name, "the keyboard is not at " + name);
  };
}

Condition StandsAt(const QString& name, const QRect& place) {
  return [=]() -> QString {
    const QWidget* part = screen::Find(name);
    if (part == nullptr) return "there is no " + name;
    const QRect is(part->mapTo(part->window()->findChild<QWidget*>("content"), QPoint()), part->size());
    return If(is != place, name + QStringLiteral(" stands at %1, %2 and is %3 wide and %4 high")
                                      .arg(is.x())
                                      .arg(is.y())
                                      .arg(is.width())
                                      .arg(is.height()));
  };
}

Condition Rows(const QString& list, int count) {
  return [=] {
    const int rows = screen::RowCount(list);
    return If(rows != count, QStringLiteral("%1 has %2 rows, not %3").arg(list).arg(rows).arg(count));
  };
}

Condition MoreRowsThan(const QString& list, int count) {
  return [=] {
    const int rows = screen::RowCount(list);
    return If(rows <= count, QStringLiteral("%1 has only %2 rows").arg(list).arg(rows));
  };
}

Condition NoCellEmpty(const QString& list, int columns) {
  return [=]() -> QString {
    for (int row = 0; row < screen::RowCount(list); ++row) {
      for (int column = 0; column < columns; ++column) {
        if (screen::Cell(list, row, column).isEmpty())
          return QStringLiteral("%1 has an empty cell in row %2").arg(list).arg(row);
      }
    }
    return {};
  };
}

Condition CellSays(const QString& list, const QString& row, int column, const QString& text) {
  return [=] {
    const QString said = screen::Cell(list, screen::RowNamed(list, row), column);
    return If(said != text,
              "the row " + Quoted(row) + " of " + list + " says " + Quoted(said) + ", not " + Quoted(text));
  };
}

Condition NoRowSelected(const QString& list) {
  return [list] { return If(screen::SelectedRow(list) != -1, list + " has a selected row"); };
}

Condition RowSelected(const QString& list) {
  return [list] { return If(screen::SelectedRow(list) == -1, list + " has no selected row"); };
}

Condition FoundFirst(const QString& list, const QString& text) {
  return [=] {
    int matches = 0;
    int first = -1;
    for (int row = 0; row < screen::RowCount(list); ++row) {
      if (!screen::Cell(list, row, 0).contains(text, Qt::CaseInsensitive)) continue;
      if (matches++ == 0) first = row;
    }
    if (matches == 0) return "no row of " + list + " holds " + Quoted(text);
    if (screen::SelectedRow(list) != first) return "the first row that holds " + Quoted(text) + " is not selected";
    return Says("findCount", QStringLiteral("1 of %1 rows").arg(matches))();
  };
}

Condition SelectedRowCopied(const QString& list) {
  return [list] {
    const QString row = screen::Cell(list, screen::SelectedRow(list), 0);
    const QString copied = QGuiApplication::clipboard()->text();
    return If(row.isEmpty() || copied != row, "the clipboard has " + Quoted(copied) + ", not " + Quoted(row));
  };
}

Condition Message(const QString& text) {
  return [text] {
    const QString said = StandingMessage();
    return said == text ? ReasonNotToAnswer() : "the message box says " + Quoted(said) + ", not " + Quoted(text);
  };
}

Condition MessageWith(const QString& part) {
  return [part] {
    const QString said = StandingMessage();
    return said.contains(part) ? ReasonNotToAnswer()
                               : "the message box says " + Quoted(said) + ", without " + Quoted(part);
  };
}

Condition NoMessage() {
  return [] { return If(screen::Box() != nullptr, "a message box says " + Quoted(StandingMessage())); };
}

Condition PicturesShown(const QString& page) {
  return [page] {
    const auto* shown = screen::FindAs<QTextEdit>(page);
    const int missing = shown == nullptr ? -1 : MissingPictures(*shown->document());
    return If(missing != 0, QStringLiteral("%1 lacks %2 pictures").arg(page).arg(missing));
  };
}

Condition MenuOpen(const QString& menu) {
  return [menu] {
    const auto* shown = screen::FindAs<QComboBox>(menu);
    return If(shown == nullptr || !shown->view()->isVisible(), menu + " is not open");
  };
}

Condition PartlyDone(const QString& bar) {
  return [bar] {
    const auto* shown = screen::FindAs<QProgressBar>(bar);
    const bool isOnTheWay = shown != nullptr && shown->value() > 0 && shown->value() < shown->maximum();
    return If(!isOnTheWay, bar + " does not stand between its ends");
  };
}

Condition NothingIn(const QString& folder) {
  return [folder] {
    const QStringList entries = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    return If(!entries.isEmpty(), folder + " holds " + entries.join(", "));
  };
}

Condition Throughout(std::chrono::milliseconds time, const Condition& condition) {
  struct Watch {
    QElapsedTimer since;
    QString broken;
  };
  return [time, condition, watch = std::make_shared<Watch>()]() -> QString {
    if (!watch->since.isValid()) watch->since.start();
    if (watch->broken.isEmpty()) watch->broken = condition();
    if (!watch->broken.isEmpty()) return watch->broken;
    return If(!watch->since.hasExpired(time.count()), "it has not lasted long enough yet");
  };
}

}  // namespace tour
