// The minimum for a Qt program with the main window's controls: plain Qt widgets with the same texts, positions and
// picture, without any function.

#include <QApplication>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPixmap>
#include <QPushButton>
#include <QTableWidget>

#include "resources/Resource.h"

namespace {

QPixmap Picture(std::string_view name) {
  const auto encoded = resources::Find(name);
  QPixmap picture;
  picture.loadFromData(reinterpret_cast<const uchar*>(encoded.data()), static_cast<uint>(encoded.size()), "PNG");
  return picture;
}

QMenuBar* MakeMenus(QWidget& window) {
  auto* bar = new QMenuBar(&window);
  bar->addMenu("&File")->addAction("&Quit", QKeySequence("Ctrl+Q"), qApp, &QApplication::quit);
  QMenu* edit = bar->addMenu("&Edit");
  edit->addAction("&Undo")->setShortcut(QKeySequence("Ctrl+Z"));
  edit->addSeparator();
  edit->addAction("Cu&t")->setShortcut(QKeySequence("Ctrl+X"));
  edit->addAction("&Copy")->setShortcut(QKeySequence("Ctrl+C"));
  edit->addAction("&Paste")->setShortcut(QKeySequence("Ctrl+V"));
  edit->addAction("&Delete");
  edit->addSeparator();
  edit->addAction("Select &All")->setShortcut(QKeySequence("Ctrl+A"));
  return bar;
}

void AddList(QWidget& content) {
  auto* list = new QTableWidget(0, 3, &content);
  list->setGeometry(0, 162, 600, 200);
  list->setHorizontalHeaderLabels({"Server Name:", "IP Address:", "Hostname:"});
  list->verticalHeader()->hide();
  list->setShowGrid(false);
  list->setColumnWidth(0, 200);
  list->setColumnWidth(1, 150);
  list->setColumnWidth(2, 400);
}

QLineEdit* AddField(QWidget& content, const QRect& place, const QString& cueText) {
  auto* field = new QLineEdit(&content);
  field->setGeometry(place);
  field->setPlaceholderText(cueText);
  return field;
}

QLabel* AddLabel(QWidget& content, const QRect& place, const QString& text) {
  auto* label = new QLabel(text, &content);
  label->setGeometry(place);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

void AddControls(QWidget& content) {
  AddLabel(content, {0, 0, 600, 164}, {})->setPixmap(Picture("Logo_Banner_600x164"));
  AddList(content);
  AddField(content, {20, 374, 560, 22}, "Server Hostname or IP Address")->setFocus();
  AddField(content, {20, 408, 200, 22}, "Username");
  AddField(content, {232, 408, 200, 22}, "Password")->setEchoMode(QLineEdit::Password);
  auto* button = new QPushButton("Add Server", &content);
  button->setGeometry(444, 408, 136, 20);
  AddLabel(content, {20, 442, 560, 20}, "Version 1.0.0");
  AddLabel(content, {20, 474, 560, 20}, "Copyright © 2026 The Corvane makers");
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setWindowIcon(QIcon(Picture("corvane")));
  QWidget window;
  window.setWindowTitle("Corvane");
  QMenuBar* menus = MakeMenus(window);
  const int menuHeight = menus->sizeHint().height();
  menus->setGeometry(0, 0, 600, menuHeight);
  QWidget content(&window);
  content.setGeometry(0, menuHeight, 600, 514);
  AddControls(content);
  window.resize(600, 514 + menuHeight);
  window.show();
  return QApplication::exec();
}
