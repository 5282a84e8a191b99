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

/// A test on the real platform. Mouse and keys go to the window, as the desktop would send them, and find their widget
/// themselves.
class Desktop : public testing::Test {
 protected:
  /// Runs the event loop until `isSo`, for ten seconds at most. Returns whether it came to be so.
  static bool Until(const std::function<bool()>& isSo) { return QTest::qWaitFor(isSo, 10'000); }
  /// Shows `window` and waits until the keyboard belongs to it.
  static QWidget& Open(const std::shared_ptr<toolkit::Window>& window);
  /// The widget of that object name in any window, of the type asked for. Throws if there is none.
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
  /// The name of the widget that has the keyboard.
  static std::string Focused();
  /// Types ASCII text where the keyboard is; "\b" is the backspace key.
  static void Type(const std::string& text);
  /// Clicks the text field of that name and types over what it holds.
  static void TypeInto(const QString& name, const std::string& text);

  int argumentCount = 1;
  std::string programName = "desktop-tests";
  std::vector<char*> arguments{programName.data(), nullptr};
  toolkit::qt::QtPlatform platform{product::program, argumentCount, arguments.data()};
  App app{{1, 2, 3}};
};

/// The user in front of the message boxes: acts on each box once, Return by default, and remembers what it said.
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
