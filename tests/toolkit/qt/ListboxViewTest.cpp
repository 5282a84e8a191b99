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

using testing::ElementsAre;
using testing::IsEmpty;

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
  void Fill(int rows) {
    for (int row = 0; row < rows; ++row) list.AddRow({"name " + std::to_string(row), "b", "<b>c</b>"});
    QTest::qWait(5);
  }
  [[nodiscard]] QRect Cell(int row, int column) const { return view.visualRect(view.model()->index(row, column)); }
  /// What the CPU spends on `work` and on showing what came of it, in milliseconds.
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
  Fill(5);
  const auto doubleClick = [this](Qt::MouseButton button, QPoint place) {
    QTest::mouseDClick(window.windowHandle(), button, {}, view.viewport()->mapTo(&window, place));
  };
  const struct {
    const char* what;
    int selectedBefore;
    std::function<void()> act;
    std::vector<std::string> expected;
  } rows[] = {
      {"click", -1, [&] { ClickAt(*view.viewport(), Cell(2, 1).center()); }, {"change 2"}},
      {"click the selected row", 2, [&] { ClickAt(*view.viewport(), Cell(2, 0).center()); }, {}},
      {"click beside the rows",
       2,
       [&] {
         ClickAt(*view.viewport(), {50, 200});
       },
       {"change -1"}},
      {"double click", -1, [&] { doubleClick(Qt::LeftButton, Cell(1, 2).center()); }, {"change 1", "open 1"}},
      {"double click, right", 1, [&] { doubleClick(Qt::RightButton, Cell(1, 0).center()); }, {}},
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
      {"disabled",
       1,
       [&] { list.Enabled(false), QTest::qWait(5), ClickAt(*view.viewport(), Cell(3, 0).center()); },
       {}},
  };
  for (const auto& row : rows) {
    list.ListIndex(row.selectedBefore);
    QTest::qWait(5);
    log.clear();
    row.act();
    EXPECT_EQ(log, row.expected) << row.what;
    QTest::qWait(QApplication::doubleClickInterval() / 20);
  }
}

TEST_F(ListOnScreen, CopyTakesTheSelectedRowAndNothingElse) {
  Fill(3);
  const auto copied = [] {
    Press(Qt::Key_C, Qt::ControlModifier);
    return QApplication::clipboard()->text().toStdString();
  };
  EXPECT_EQ(copied(), "untouched");
  list.Cell(1, 1, "<i>&amp;\x1B[1m");
  list.ListIndex(1);
  QTest::qWait(5);
  EXPECT_EQ(copied(), "name 1\t<i>&amp;\x1B[1m\t<b>c</b>");
  list.DeleteAllRows();
  QTest::qWait(5);
  EXPECT_EQ(copied(), "name 1\t<i>&amp;\x1B[1m\t<b>c</b>");
  EXPECT_THAT(log, ElementsAre("change 1", "change -1"));
}

TEST_F(ListOnScreen, AMillionRowsAndAMillionCharactersCostWhatIsOnTheScreen) {
  constexpr int many = 1'000'000;
  constexpr double quick = 200;
  std::string text(many, 'm');
  text.replace(text.size() - 5, 5, "W end");
  EXPECT_LT(Cost([&] {
              for (int row = 0; row < many; ++row) list.AddRow({"name", "b", "c"});
            }),
            8000);
  list.Cell(many - 1, 0, text);
  list.Cell(many - 1, 2, text);
  const struct {
    const char* what;
    std::function<void()> act;
    int rowSeen;
  } rows[] = {
      {"painting", [] {}, 0},
      {"End key", [] { Press(Qt::Key_End); }, many - 1},
      {"page up", [] { Press(Qt::Key_PageUp); }, many - 12},
      {"middle", [&] { view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2); }, many / 2},
      {"to the right", [&] { view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum()); }, many / 2},
      {"end of the long text", [] { Press(Qt::Key_End); }, many - 1},
      {"one more row",
       [&] {
         list.AddRow({"x", "y", "z"});
       },
       many - 1},
      {"change of size", [&] { window.resize(500, 400); }, many - 1},
      {"no rows", [&] { list.DeleteAllRows(); }, -1},
  };
  for (const auto& row : rows) {
    EXPECT_LT(Cost(row.act), quick) << row.what;
    if (row.rowSeen < 0) continue;
    EXPECT_TRUE(Cell(row.rowSeen, 2).intersects(view.viewport()->rect())) << row.what << ": the row is not in sight";
    if (view.horizontalScrollBar()->value() > 0 && row.rowSeen == many / 2) continue;  // a short text
    const QRect seen = Cell(row.rowSeen, 2) & view.viewport()->rect();
    EXPECT_GT(InkWidth(view.viewport()->grab(seen).toImage()), 3) << row.what;
  }
  Fill(3);
  EXPECT_EQ(Cell(0, 0).topLeft(), QPoint(0, 0));
  EXPECT_GT(Contrast(view.viewport()->grab(Cell(2, 0)).toImage()), 90);
}

TEST_F(ListOnScreen, TextIsShownAsItIsAndAScreenReaderFindsIt) {
  QAccessible::setActive(true);
  list.AddRow({"<b>" + std::string(200, 'x') + "</b>", "bold", "c"});
  list.AddRow({"line\nbreak \x1B[31m", "<b>bold</b>", "c"});
  QTest::qWait(5);
  const auto inkOf = [&](int row) { return InkWidth(view.viewport()->grab(Cell(row, 1)).toImage()); };
  EXPECT_GT(inkOf(1), inkOf(0) * 3 / 2) << "the markup was not drawn";
  const auto toolTipAt = [&](int row, int column) {
    QHelpEvent help(QEvent::ToolTip, Cell(row, column).center(), view.viewport()->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(view.viewport(), &help);
    return QToolTip::text();
  };
  QTextDocument shown;
  shown.setHtml(toolTipAt(0, 0));
  EXPECT_EQ(shown.toPlainText().toStdString(), "<b>" + std::string(200, 'x') + "</b>");
  toolTipAt(0, 1);
  EXPECT_TRUE(Until([] { return !QToolTip::isVisible(); })) << "a text that is not cut needs no tool tip";

  Press(Qt::Key_End);
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(&view)->child(3);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->text(QAccessible::Name).toStdString(), "line␊break ␛[31m");
  list.DeleteAllRows();
  QTest::qWait(5);
  QAccessible::setActive(false);
}

}  // namespace
