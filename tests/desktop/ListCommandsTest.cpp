#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/resource.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "shell/MenuBar1.h"
#include "tests/desktop/Desktop.h"
#include "toolkit/Listbox.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextField.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/ListExport.h"

using namespace std::string_literals;

namespace {

class Sheet final : public toolkit::Window {
 public:
  Sheet() : Window("Sheet", {400, 300}, {100, 100}, {4000, 4000}) {
    Menus(MenuBar1());
    Add(List, "list", {0, 0, 400, 200}, {}, 0).ColumnCount(2).AccessibleName("Rows");
    Add(Plain, "plain", {0, 210, 100, 22}, {}, 1).Text("plain");
    Add(Masked, "masked", {0, 240, 100, 22}, {}, 2).Text("s3cret").Masked(toolkit::Masking::Password);
    List.AddRow({"Error: disk", "a", "hidden"});
    List.AddRow({"fine", "b\r\nc\rd\te"});
    List.AddRow({"", "ERROR grün"});
    for (int row = 0; row < 60; ++row) List.AddRow({"filler", ""});
    List.AddRow({"last error", "z"});
  }
  toolkit::Listbox List;
  toolkit::TextField Plain;
  toolkit::TextField Masked;
};

class ListCommands : public Desktop {
 protected:
  ListCommands() { QApplication::clipboard()->setText("untouched"); }
  static std::string Clipboard() { return QApplication::clipboard()->text().toStdString(); }
  static std::string Read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::shared_ptr<Sheet> sheet = std::make_shared<Sheet>();
  toolkit::Listbox& list = sheet->List;
  QWidget& window = Open(sheet);
  QAbstractItemView& view = Find<QAbstractItemView>("list");
};

}  // namespace

TEST_F(ListCommands, FindGoesRoundTheRowsThatMatch) {
  Click(view);
  list.ListIndex(1);
  QTest::qWait(5);
  Press(Qt::Key_F, Qt::ControlModifier);
  const struct {
    const char* typed;
    Qt::Key key;
    bool shift;
    int row;
    const char* count;
  } rows[] = {
      // clang-format off
      {"eRRor", Qt::Key_unknown, false, 2, "2 of 3 rows"}, {"", Qt::Key_Return, false, 63, "3 of 3 rows"},
      {"", Qt::Key_Enter, false, 0, "1 of 3 rows"}, {"", Qt::Key_Return, true, 63, "3 of 3 rows"},
      {"", Qt::Key_Return, true, 2, "2 of 3 rows"}, {":", Qt::Key_Return, false, 0, "1 of 1 rows"},
      {"x", Qt::Key_Return, false, 0, "No rows"}, {"\b\b\b\b\b\b\b", Qt::Key_Return, false, 0, ""},
      {"hidden", Qt::Key_Return, false, 0, "No rows"},
      // clang-format on
  };
  const auto& count = Find<QLabel>("findCount");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.count);
    for (const char* letter = row.typed; *letter != '\0'; ++letter) {
      *letter == '\b' ? Press(Qt::Key_Backspace) : QTest::keyClick(window.windowHandle(), *letter);
    }
    if (row.key != Qt::Key_unknown) Press(row.key, row.shift ? Qt::ShiftModifier : Qt::NoModifier);
    EXPECT_TRUE(Until([&] { return list.ListIndex() == row.row && count.text() == row.count; }))
        << list.ListIndex() << " " << count.text().toStdString();
  }
  QWidget& bar = Find("findBar");
  EXPECT_TRUE(view.rect().contains(bar.geometry()) && bar.height() > 10);
  EXPECT_FALSE(view.viewport()->geometry().intersects(bar.geometry())) << "the bar covers rows";
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "findText");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(bar.isVisible());
  EXPECT_EQ(QApplication::focusWidget(), &view);
  Press(Qt::Key_Down);
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(ListCommands, CopyAllAndSaveWriteEveryRowOnALineOfItsOwn) {
  std::string expected = "Error: disk\ta\nfine\tb  c d\te\n\tERROR grün\n";
  for (int row = 0; row < 60; ++row) expected += "filler\t\n";
  expected += "last error\tz\n";
  Click(view);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Clipboard(), expected);

  const QTemporaryDir temporary;
  const std::filesystem::path folder = temporary.path().toStdString();
  const std::filesystem::path file = folder / "grün list.txt";
  std::ofstream(file) << std::string(5000, 'x');
  toolkit::qt::SaveRows(list, file);
  EXPECT_EQ(Read(file), expected);
  list.AddRow({"one more"});
  for (const auto& path : {folder, folder / "no" / "such.txt"}) {
    EXPECT_THROW(toolkit::qt::SaveRows(list, path), toolkit::RuntimeException) << path;
  }
  // A disk that is full lets no file grow.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{.rlim_cur = 100, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_THROW(toolkit::qt::SaveRows(list, file), toolkit::RuntimeException);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(Read(file), expected);
  EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(folder), {}), 1) << "something was left behind";
}

TEST_F(ListCommands, EditItemsActOnTheFocusWhereTheyMakeSense) {
  const struct {
    std::string focus;
    const char* item;
    bool enabled;
    const char* clipboard;
    const char* text;
  } rows[] = {
      // clang-format off
      {"plain", "EditCopy", true, "plain", "plain"}, {"plain", "EditCut", true, "plain", ""},
      {"plain", "EditUndo", true, "before", "plain"}, {"masked", "EditUndo", false, "before", "plain"},
      {"masked", "EditCopy", false, "before", "plain"}, {"masked", "EditCut", false, "before", "plain"},
      {"list", "EditCopy", true, "Error: disk\ta", "plain"}, {"list", "EditCut", false, "before", "plain"},
      {"list", "EditPaste", false, "before", "plain"}, {"list", "EditClear", false, "before", "plain"},
      {"plain", "EditPaste", true, "before", "before"}, {"plain", "EditClear", true, "before", ""},
      {"plain", "EditCopy", false, "before", ""}, {"plain", "EditSelectAll", false, "before", ""},
      // clang-format on
  };
  auto& menu = Find<QMenu>("EditMenu");
  list.ListIndex(0);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.focus + ", " + row.item);
    QApplication::clipboard()->setText("before");
    Find(row.focus.c_str()).setFocus();
    Press(Qt::Key_A, Qt::ControlModifier);
    emit menu.aboutToShow();
    auto& item = Find<QAction>(row.item);
    EXPECT_EQ(item.isEnabled(), row.enabled);
    emit menu.aboutToHide();
    QTest::qWait(1);
    item.trigger();
    EXPECT_EQ(Clipboard(), row.clipboard);
    EXPECT_EQ(sheet->Plain.Text(), row.text);
    EXPECT_EQ(sheet->Masked.Text(), "s3cret");
  }
}

TEST(DisplayText, ShowsWhatCannotBeSeen) {
  // clang-format off
  const std::vector<std::pair<std::string, const char*>> rows{
      {"", ""}, {"<b>grün 🦊</b>", "<b>grün 🦊</b>"}, {"a\tb", "a       b"}, {"12345678\tb", "12345678        b"},
      {"\x1B[31mred\x1B[0m", "␛[31mred␛[0m"}, {"a\0b"s, "a␀b"}, {"a\nb\r\n", "a␊b␍␊"}, {"\x7F\b", "␡␈"},
      {"a\u2028b\u2029\u0085", "a␤b␤␤"}, {"\x1B\tb", "␛       b"}};
  // clang-format on
  for (const auto& [text, shown] : rows) EXPECT_EQ(toolkit::qt::DisplayText(text).toStdString(), shown) << text;
}
