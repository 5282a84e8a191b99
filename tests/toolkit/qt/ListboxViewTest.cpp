#include <fstream>

#include "tests/desktop/Desktop.h"
#include "toolkit/Listbox.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextFile.h"
#include "toolkit/qt/ListExport.h"

namespace {

struct ListWindow final : toolkit::Window {
  ListWindow() : Window("List", {400, 300}, {100, 100}, {4000, 4000}) {
    Add(List, "list", {0, 0, 400, 300}, {}, 0).ColumnCount(3).ColumnWidths("100,100,*").HasHeading(true);
  }
  toolkit::Listbox List;
};

struct ListOnScreen : Desktop {
  ListOnScreen() {
    list.Change = [this] { log.push_back("change " + std::to_string(list.ListIndex())); };
    list.DoubleClick = [this] { log.push_back("open " + std::to_string(list.ListIndex())); };
  }
  void AddRows(int count, std::initializer_list<std::string_view> cells) {
    for (int row = 0; row < count; ++row) list.AddRow(cells);
    EXPECT_TRUE(Until([&] { return view.model()->rowCount() == list.ListCount(); }));
  }
  [[nodiscard]] QRect Cell(int row, int column) const { return view.visualRect(view.model()->index(row, column)); }

  std::shared_ptr<ListWindow> model = std::make_shared<ListWindow>();
  toolkit::Listbox& list = model->List;
  QWidget& window = Open(model);
  QAbstractItemView& view = Find<QAbstractItemView>("list");
  std::vector<std::string> log;
};

TEST_F(ListOnScreen, MouseAndKeysDoWhatTheUserMeans) {
  AddRows(5, {"a", "<i>&amp;\x1B[1m", "c"});
  const auto click = [this](QPoint place) { return [=, this] { ClickAt(*view.viewport(), place); }; };
  const auto key = [](Qt::Key pressed, Qt::KeyboardModifier modifier = Qt::NoModifier) {
    return [=] { Press(pressed, modifier); };
  };
  const auto doubleClick = [this] {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, view.viewport()->mapTo(&window, Cell(1, 2).center()));
  };
  const std::tuple<const char*, int, std::function<void()>, std::vector<std::string>> rows[] = {
      {"click", -1, click(Cell(2, 1).center()), {"change 2"}},
      {"click the selected row", 2, click(Cell(2, 0).center()), {}},
      {"click beside the rows", 2, click({50, 200}), {"change -1"}},
      {"double click", -1, doubleClick, {"change 1", "open 1"}},
      {"Return", 1, key(Qt::Key_Return), {"open 1"}},
      {"Down without a row", -1, key(Qt::Key_Down), {"change 0"}},
      {"rows removed", 1, [this] { list.DeleteAllRows(); }, {"change -1"}},
  };
  for (const auto& [what, selectedBefore, act, expected] : rows) {
    list.ListIndex(selectedBefore);
    EXPECT_TRUE(Until([&, row = selectedBefore] { return view.currentIndex().row() == row; })) << what;
    log.clear();
    act();
    EXPECT_EQ(log, expected) << what;
  }
}

TEST_F(ListOnScreen, TextIsShownAndReadAsItIs) {
  const std::string marked = "<b>" + std::string(200, 'x') + "</b>";
  AddRows(1, {marked, "bold", "c"});
  AddRows(1, {"line\nbreak \x1B[31m", "<b>bold</b>", "c"});
  const auto picture = [&](int row) { return view.viewport()->grab(Cell(row, 1)).toImage(); };
  const auto ink = [&](int row) {
    return std::ranges::count_if(PixelsOf(picture(row)), [](QRgb pixel) { return qGray(pixel) < 128; });
  };
  EXPECT_GT(ink(1), ink(0) * 3 / 2) << "the markup was not drawn";
  QHelpEvent help(QEvent::ToolTip, Cell(0, 0).center(), view.viewport()->mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(view.viewport(), &help);
  QTextDocument shown;
  shown.setHtml(QToolTip::text());
  EXPECT_EQ(shown.toPlainText().toStdString(), marked);
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Name).toStdString(), "line␊break ␛[31m");
}

TEST_F(ListOnScreen, FindGoesRoundTheRowsThatMatch) {
  AddRows(1, {"Error: disk", "a", "", "hidden"});
  AddRows(1, {"fine", "b"});
  AddRows(1, {"ERROR", "grün [x]*"});
  Click(view);
  list.ListIndex(1);
  Press(Qt::Key_F, Qt::ControlModifier);
  const std::tuple<const char*, int, const char*> rows[] = {{"eRRor", 2, "2 of 2 rows"},
                                                            {"", 0, "1 of 2 rows"},
                                                            {":x", 0, "No rows"},
                                                            {"\b\b\b\b\b\b\b[X]", 2, "1 of 1 rows"}};
  for (const auto& [typed, row, count] : rows) {
    Type(typed);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Until([&, &row = row, &count = count] {
      return list.ListIndex() == row && Find<QLabel>("findCount").text() == count;
    })) << typed;
  }
  Press(Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &view);
}

TEST_F(ListOnScreen, CopyAllAndSaveWriteARowALine) {
  AddRows(2, {"fine", "b\r\nc\rd\te", "grün", "hidden"});
  const std::string expected = "fine\tb  c d\te\tgrün\nfine\tb  c d\te\tgrün\n";
  Click(view);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), expected);
  const QTemporaryDir folder;
  const std::filesystem::path file = folder.filePath("grün list.txt").toStdString();
  std::ofstream(file) << std::string(5000, 'x');
  toolkit::qt::SaveRows(list, file);
  EXPECT_EQ(toolkit::ReadFile(toolkit::FolderItem(file)), expected);
  EXPECT_THROW(toolkit::qt::SaveRows(list, file / "no folder"), toolkit::RuntimeException);
}

}  // namespace
