#include "tests/desktop/Desktop.h"

#include <algorithm>

#include "toolkit/qt/DialogBox.h"

QWidget& Desktop::Open(const std::shared_ptr<toolkit::Window>& window) {
  window->Show();
  const auto tops = QApplication::topLevelWidgets();
  const auto* top = *std::find_if(tops.begin(), tops.end(), [&](const QWidget* widget) {
    return widget->isVisible() && widget->windowTitle().toStdString() == window->Title();
  });
  EXPECT_TRUE(QTest::qWaitForWindowActive(top->windowHandle()));
  return *top->window();
}

void Desktop::ClickAt(const QWidget& widget, QPoint place) {
  QWidget& window = *widget.window();
  window.activateWindow();  // as a window manager does
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window, place));
}

void Desktop::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::activeWindow()->windowHandle(), key, modifiers);
}

std::string Desktop::Focused() { return QApplication::focusWidget()->objectName().toStdString(); }

void Desktop::Type(const std::string& text) {
  for (const char letter : text) QTest::keyClick(QApplication::activeWindow()->windowHandle(), letter);
}

void Desktop::TypeInto(const QString& name, const std::string& text) {
  Click(Find(name));
  Press(Qt::Key_A, Qt::ControlModifier);
  Type(text);
}

BoxReader::BoxReader(std::function<void(QDialog&)> act) : act_(std::move(act)) {
  if (!act_) act_ = [](const QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Return); };
  QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
  timer_.start(5);
}

void BoxReader::Look() {
  QDialog* newBox = nullptr;
  std::size_t standing = 0;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    auto* box = qobject_cast<QDialog*>(top);
    if (box == nullptr || !box->isVisible()) continue;
    const auto* message = dynamic_cast<toolkit::qt::DialogBox*>(box);
    ++standing;
    if (!box->property("read").toBool() && (message == nullptr || message->TakesKeys())) newBox = box;
  }
  MostAtOnce = std::max(MostAtOnce, standing);
  if (newBox == nullptr) return;
  newBox->setProperty("read", true);
  Texts.push_back(newBox->findChild<QPlainTextEdit*>()->toPlainText().toStdString());
  QTimer::singleShot(20, newBox, [this, newBox] { act_(*newBox); });
}

std::string PictureOf(QColor color, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(color);
  QBuffer buffer;
  image.save(&buffer, "PNG");
  return buffer.data().toStdString();
}

std::vector<QRgb> PixelsOf(const QImage& image) {
  const QImage plain = image.convertToFormat(QImage::Format_RGB32);
  const auto* first = reinterpret_cast<const QRgb*>(plain.constBits());
  return {first, first + plain.sizeInBytes() / 4};
}
