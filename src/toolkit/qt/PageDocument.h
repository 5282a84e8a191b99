#pragma once

#include <map>

#include <QPalette>
#include <QPixmap>
#include <QTextDocument>

namespace toolkit::qt {

/// A page in Qt's rich text. It loads nothing itself: where Qt asks for a picture that was not handed over, it gets an
/// empty one, since it would look for a file otherwise.
class PageDocument final : public QTextDocument {
 public:
  /// `html` is that of a filtered page.
  PageDocument(const QString& html, const QFont& font, const QPalette& palette);

  /// Shows a picture in every place that has its number, once Follow is called.
  void Show(std::size_t number, const QPixmap& picture);
  /// Lays out the text around the pictures that have come.
  void Follow();

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  struct Range {
    int first = 0;
    int last = -1;
  };
  std::map<QString, Range> places_;
  Range changed_;
};

}  // namespace toolkit::qt
