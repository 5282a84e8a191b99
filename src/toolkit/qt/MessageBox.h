#pragma once

#include <QDialog>
#include <QString>

namespace toolkit::qt {

/// A dialog that shows one plain text, which wraps and scrolls if it is long, and a button that closes it.
class MessageBox final : public QDialog {
 public:
  explicit MessageBox(const QString& text);
};

}  // namespace toolkit::qt
