#include "toolkit/qt/ListExport.h"

#include <algorithm>

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QSaveFile>

#include "toolkit/HandlerTurn.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t writtenAtOnce = std::size_t{1} << 20U;

/// The row as one line, including its line break.
std::string LineOf(const Listbox& list, int row) {
  std::string line = list.RowText(row);
  std::replace_if(
      line.begin(), line.end(), [](char letter) { return letter == '\n' || letter == '\r'; }, ' ');
  line += '\n';
  return line;
}

}  // namespace

void CopySelectedRow(const Listbox& list) {
  if (list.ListIndex() >= 0) QGuiApplication::clipboard()->setText(ToQt(list.RowText(list.ListIndex())));
}

void CopyAllRows(const Listbox& list) {
  std::string text;
  for (int row = 0; row < list.ListCount(); ++row) text += LineOf(list, row);
  QGuiApplication::clipboard()->setText(ToQt(text));
}

void SaveRows(const Listbox& list, const std::string& path) {
  QSaveFile file(ToQt(path));
  bool isFine = file.open(QIODevice::WriteOnly);
  std::string lines;
  for (int row = 0; isFine && row < list.ListCount(); ++row) {
    lines += LineOf(list, row);
    if (lines.size() < writtenAtOnce && row + 1 < list.ListCount()) continue;
    isFine = file.write(lines.data(), static_cast<qint64>(lines.size())) == static_cast<qint64>(lines.size());
    lines.clear();
  }
  // commit() alone does not report that the disk was full when it flushed the buffer.
  if (isFine && file.flush() && file.commit()) return;
  throw RuntimeException("The list could not be saved to " + path + ": " + FromQt(file.errorString()) + ".");
}

void AskWhereToSave(const Listbox& list, QWidget& parent) {
  auto* dialog = new QFileDialog(&parent, QStringLiteral("Save As"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("txt"));
  dialog->selectFile(ToQt(list.FileName()).replace('/', '_') + QLatin1String(".txt"));
  QObject::connect(dialog, &QFileDialog::fileSelected, &parent, [&list, view = QPointer(&parent)](const QString& path) {
    Platform::Current().WhenFree([&list, view, path = FromQt(path)] {
      if (!view) return;
      const HandlerTurn turn(QtWindow::Of(*view));
      SaveRows(list, path);
    });
  });
  dialog->open();
}

}  // namespace toolkit::qt
