#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QTest>
#include <QtWidgets>
#include <gmock/gmock.h>

#include "shell/App.h"
#include "shell/Product.h"
#include "tests/support/OtherWindow.h"
#include "toolkit/qt/QtPlatform.h"

/// A test on the real platform. Mouse and key events are sent to the window, as the desktop does, and Qt passes them to
/// the widget.
class Desktop : public testing::Test {
 protected:
  /// Runs the event loop until `isSo` returns true, for at most ten seconds. Returns whether it did.
  static bool Until(const std::function<bool()>& isSo) { return QTest::qWaitFor(isSo, 10'000); }
  /// Shows `window` and waits until it is active.
  static QWidget& Open(const std::shared_ptr<toolkit::Window>& window);
  /// The widget with this object name and type in any visible window. Throws if there is none.
  template <typename Widget = QWidget>
  static Widget& Find(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (auto* found = top->isVisible() ? top->findChild<Widget*>(name) : nullptr) return *found;
    }
    throw std::runtime_error("there is no widget " + name.toStdString());
  }
  static void Click(const QWidget& widget) { ClickAt(widget, widget.rect().center()); }
  static void ClickAt(const QWidget& widget, QPoint place);
  /// Presses a key in the active window.
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// The object name of the focused widget.
  static std::string Focused();
  /// Types ASCII text into the focused widget; "\b" is the backspace key.
  static void Type(const std::string& text);
  /// Clicks the text field of that name and replaces its text.
  static void TypeInto(const QString& name, const std::string& text);

  int argumentCount = 1;
  std::string programName = "desktop-tests";
  std::vector<char*> arguments{programName.data(), nullptr};
  toolkit::qt::QtPlatform platform{product::program, argumentCount, arguments.data()};
  App app{{1, 2, 3}};
};

/// Plays the user of message boxes: records the text of each box and acts on it once, by default with Return.
class BoxReader {
 public:
  explicit BoxReader(std::function<void(QDialog&)> act = nullptr);

  std::vector<std::string> Texts;
  std::size_t MostAtOnce = 0;

 private:
  void Look();

  std::function<void(QDialog&)> act_;
  QTimer timer_;
};

/// A picture of one color, as a PNG file.
[[nodiscard]] std::string PictureOf(QColor color, QSize size);

[[nodiscard]] std::vector<QRgb> PixelsOf(const QImage& image);
