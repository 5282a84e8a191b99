#include <ctime>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/Listbox.h"

namespace {

class ListWindow final : public toolkit::Window {
 public:
  ListWindow() : Window("List", {400, 300}, {100, 100}, {4000, 4000}) {
    Add(List, "list", {0, 0, 400, 300}, {}, 0).ColumnCount(3).ColumnWidths("100,100,*").HasHeading(true);
  }
  toolkit::Listbox List;
};

class ListOnScreen : public Desktop {
 protected:
  ListOnScreen() {
    list.Change = [this] { log.push_back("change " + std::to_string(list.ListIndex())); };
    list.DoubleClick = [this] { log.push_back("open " + std::to_string(list.ListIndex())); };
    QApplication::clipboard()->setText("untouched");
  }
  void Add(std::initializer_list<std::string_view> cells, int times = 1) {
    for (int row = 0; row < times; ++row) list.AddRow(cells);
    EXPECT_TRUE(Until([&] { return view.model()->rowCount() == list.ListCount(); }));
  }
  [[nodiscard]] QRect Cell(int row, int column) const { return view.visualRect(view.model()->index(row, column)); }
  [[nodiscard]] int Ink(const QRect& area) const { return InkWidth(view.viewport()->grab(area).toImage()); }
  /// What the CPU spends on `work` and on painting what came of it, in milliseconds.
  double Cost(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    QTest::qWait(10);
    window.grab();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }

  std::shared_ptr<ListWindow> model = std::make_shared<ListWindow>();
  toolkit::Listbox& list = model->List;
  QWidget& window = Open(model);
  QAbstractItemView& view = Find<QAbstractItemView>("list");
  std::vector<std::string> log;
};

TEST_F(ListOnScreen, MouseAndKeysDoWhatTheUserMeans) {
  Add({"a", "<i>&amp;\x1B[1m", "c"}, 5);
  const auto click = [&](QPoint place) { ClickAt(*view.viewport(), place); };
  const auto doubleClick = [&](Qt::MouseButton button) {
    QTest::mouseDClick(window.windowHandle(), button, {}, view.viewport()->mapTo(&window, Cell(1, 2).center()));
  };
  const auto copy = [&] {
    Press(Qt::Key_C, Qt::ControlModifier);
    log.push_back(QApplication::clipboard()->text().toStdString());
  };
  const struct {
    const char* what;
    int selectedBefore;
    std::function<void()> act;
    std::vector<std::string> expected;
  } rows[] = {
      {"copy without a row", -1, copy, {"untouched"}},
      {"copy", 1, copy, {"a\t<i>&amp;\x1B[1m\tc"}},
      {"click", -1, [&] { click(Cell(2, 1).center()); }, {"change 2"}},
      {"click the selected row", 2, [&] { click(Cell(2, 0).center()); }, {}},
      {"click beside the rows",
       2,
       [&] {
         click({50, 200});
       },
       {"change -1"}},
      {"double click", -1, [&] { doubleClick(Qt::LeftButton); }, {"change 1", "open 1"}},
      {"double click, right",
       1,
       [&] {
         doubleClick(Qt::RightButton);
         if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
         window.activateWindow();
         QTest::qWait(5);
       },
       {}},
      {"Return", 1, [] { Press(Qt::Key_Return); }, {"open 1"}},
      {"Enter", 1, [] { Press(Qt::Key_Enter, Qt::KeypadModifier); }, {"open 1"}},
      {"Return without a row", -1, [] { Press(Qt::Key_Return); }, {}},
      {"Down", 1, [] { Press(Qt::Key_Down); }, {"change 2"}},
      {"Up", 1, [] { Press(Qt::Key_Up); }, {"change 0"}},
      {"Up at the top", 0, [] { Press(Qt::Key_Up); }, {}},
      {"Down without a row", -1, [] { Press(Qt::Key_Down); }, {"change 0"}},
      {"End", 0, [] { Press(Qt::Key_End); }, {"change 4"}},
      {"Home", 3, [] { Press(Qt::Key_Home); }, {"change 0"}},
      {"page down", 0, [] { Press(Qt::Key_PageDown); }, {"change 4"}},
      {"page up", 4, [] { Press(Qt::Key_PageUp); }, {"change 0"}},
      {"select all", 1, [] { Press(Qt::Key_A, Qt::ControlModifier); }, {}},
      {"rows removed",
       1,
       [&] { list.DeleteAllRows(), QTest::qWait(30), copy(); },
       {"change -1", "a\t<i>&amp;\x1B[1m\tc"}},
  };
  for (const auto& row : rows) {
    list.ListIndex(row.selectedBefore);
    QTest::qWait(30);
    log.clear();
    row.act();
    EXPECT_EQ(log, row.expected) << row.what;
  }
}

TEST_F(ListOnScreen, AMillionRowsAndAMillionCharactersCostWhatIsOnTheScreen) {
  constexpr int many = 1'000'000;
  EXPECT_LT(Cost([&] { Add({"name", "b", "c"}, many); }), 8000);
  const std::string text = std::string(many, 'm') + "W end";
  list.Cell(many - 1, 0, text);
  list.Cell(many - 1, 2, text);
  QScrollBar& across = *view.horizontalScrollBar();
  ASSERT_TRUE(Until([&] { return across.maximum() > 0; }));
  const auto middle = [&] { view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2); };
  const struct {
    const char* what;
    std::function<void()> act;
    int rowSeen;
  } rows[] = {{"painting", [] {}, 0},
              {"End key", [] { Press(Qt::Key_End); }, many - 1},
              {"page up", [] { Press(Qt::Key_PageUp); }, many - 12},
              {"middle", middle, many / 2},
              {"end of the long text", [&] { Press(Qt::Key_End), across.setValue(across.maximum()); }, many - 1},
              {"one more row",
               [&] {
                 Add({"x", "y", "z"});
               },
               many - 1},
              {"change of size", [&] { window.resize(500, 400); }, many - 1}};
  for (const auto& row : rows) {
    EXPECT_LT(Cost(row.act), 200) << row.what;
    const QRect seen = Cell(row.rowSeen, 2) & view.viewport()->rect();
    EXPECT_EQ(seen.height(), Cell(row.rowSeen, 2).height()) << row.what << ": the row is not wholly in sight";
    EXPECT_GT(Ink(seen), 3) << row.what;
  }
  EXPECT_LT(Cost([&] { list.DeleteAllRows(); }), 200);
  Add({"a", "b", "c"}, 3);
  EXPECT_EQ(Cell(0, 0).topLeft(), QPoint(0, 0));
  EXPECT_GT(Ink(Cell(2, 0)), 3);
}

TEST_F(ListOnScreen, TextIsShownAsItIsAndAScreenReaderFindsIt) {
  const std::string marked = "<b>" + std::string(200, 'x') + "</b>";
  Add({marked, "bold", "c"});
  Add({"line\nbreak \x1B[31m", "<b>bold</b>", "c"});
  EXPECT_GT(Ink(Cell(1, 1)), Ink(Cell(0, 1)) * 3 / 2) << "the markup was not drawn";
  const auto toolTipAt = [&](int row, int column) {
    QHelpEvent help(QEvent::ToolTip, Cell(row, column).center(), view.viewport()->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(view.viewport(), &help);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    return shown.toPlainText().toStdString();
  };
  EXPECT_EQ(toolTipAt(0, 0), marked);
  toolTipAt(0, 1);
  EXPECT_TRUE(Until([] { return !QToolTip::isVisible(); })) << "a text that is not cut needs no tool tip";
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(&view)->child(3);
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->text(QAccessible::Name).toStdString(), "line␊break ␛[31m");
}

}  // namespace
