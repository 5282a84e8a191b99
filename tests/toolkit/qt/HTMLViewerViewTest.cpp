#include <algorithm>
#include <list>

#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "tests/support/HostilePictures.h"
#include "toolkit/HTMLViewer.h"
#include "toolkit/Text.h"
#include "toolkit/TextFile.h"
#include "toolkit/qt/PageFilter.h"

using namespace std::string_literals;
using namespace testing;
using namespace test_servers;

namespace {

std::string Times(int count, const char* text) { return QString(text).repeated(count).toStdString(); }

std::string Red(QSize size = {40, 40}) { return PictureOf(Qt::red, size); }

TEST(FilterPage, LeavesOutWhatHarmsOrTakesLong) {
  const std::tuple<const char*, std::string, bool, std::string> rows[] = {
      {"text", Times(80'000, "some text "), true, Times(700, "some text ")},
      {"fonts in fonts", Times(100'000, "<b>"), true, Times(65, "<b>")},
      {"tables in tables", Times(100'000, "<table><tr><td>"), false, Times(5, "<table><tr><td>")},
      {"rows", "<table>" + Times(100'000, "<tr><td>"), false, Times(10'000, "<tr><td></td></tr>")},
      {"a grid", "<table><tr>" + Times(50, "<td>") + Times(5'000, "<tr><td>"), false,
       Times(4'999, "<tr><td></td></tr>")},
      {"pieces", Times(10'000, "<b>x</b>y"), true, Times(700, "<b>x</b>y")},
      {"attributes", "<b " + Times(500'000, "a=b ") + ">", true, "a=b"},
      {"a script", "<script><b>bad</b></script >text<b onclick=bad>", true, "bad"},
      {"fonts", "<b style='color:red;font-size:999px'>text</b><style>b{font-size:999px}</style>", true, "999"},
      {"styles that load", "<style>b{background:url(x)}</style><b style='background:url(x)'>text", true, "url"},
      {"links elsewhere", "<a href=javascript:x>text</a><a href=file:///x>text</a>", true, "href"}};
  for (const auto& [what, page, isWhole, unwanted] : rows) {
    const auto filtered = toolkit::qt::FilterPage(QString::fromStdString(page), 500);
    EXPECT_EQ(filtered.IsCut, !isWhole) << what;
    EXPECT_LT(filtered.HTML.size(), 1'000'000) << what;
    EXPECT_FALSE(filtered.HTML.contains(QString::fromStdString(unwanted)))
        << what << filtered.HTML.left(200).toStdString();
  }
}

struct PageWindow final : toolkit::Window {
  PageWindow() : Window("Page", {400, 300}, {64, 64}, {4000, 4000}) {
    Add(Viewer, "viewer", {0, 0, 400, 260}, {}, 0);
    Add(Close, "close", {0, 270, 100, 20}, {}, 1).Role(toolkit::ButtonRole::Default);
  }
  toolkit::HTMLViewer Viewer;
  toolkit::PushButton Close;
};

struct Page : Desktop {
  Page() {
    model->Viewer.Error = [this](int code, const std::string& text) {
      log.push_back(std::to_string(code) + " " + text);
    };
    model->Close.Action = [this] { log.emplace_back("default"); };
  }
  void Load(const std::string& html) {
    log.clear();
    model->Viewer.LoadPage(html + "<p>end of page", toolkit::FolderItem(folder.path().toStdString()));
    ASSERT_TRUE(Until([&] { return view.toPlainText().contains("end of page"); }));
  }
  /// A page of `count` pictures, from each of the servers in turn.
  static std::string Pictures(std::size_t count, const std::vector<const FaultServer*>& servers) {
    std::string page;
    for (std::size_t number = 0; number < count; ++number)
      page += "<img src='" + servers[number % servers.size()]->URL() + "/" + std::to_string(number) + "'>";
    return page;
  }
  /// How many pixels of the page are red.
  std::ptrdiff_t Redness() { return std::ranges::count(PixelsOf(view.viewport()->grab().toImage()), 0xFFFF0000); }
  QPoint PlaceOf(const char* text) {
    QTextCursor cursor = view.document()->find(text);
    const int end = view.cursorRect(cursor).left();
    cursor.setPosition(cursor.anchor());
    const QRect start = view.cursorRect(cursor);
    return {(start.left() + end) / 2, start.center().y()};
  }

  const QTemporaryDir folder;
  std::vector<std::string> log;
  std::shared_ptr<PageWindow> model = std::make_shared<PageWindow>();
  QWidget& window = Open(model);
  QTextBrowser& view = Find<QTextBrowser>("viewer");
};

TEST_F(Page, LoadsPicturesFromTheNetworkAlone) {
  const FaultServer server({{{Reply(200, Red())}}}, Wire::Plain);
  const std::string file = folder.filePath("red.png").toStdString();
  toolkit::ReplaceFile(toolkit::FolderItem(file), Red());
  std::string page;
  for (const std::string& url : {server.URL() + "/other", "file://" + file, file, "red.png"s, "qrc:/red.png"s}) {
    page += R"(<link rel=stylesheet href='$'><style>@import url($); body{background:url($)}</style><base href='$'>
        <body background='$'><iframe src='$'></iframe><object data='$'></object><embed src='$'><table background='$'>
        <tr><td background='$'>x</table><p style='background-image:url($)'>x<input type=image src='$'>)";
    page = toolkit::ReplaceAll(page, "$", url);
    if (url.find("other") == std::string::npos) page += "<img src='" + url + "'>";
  }
  Load(page + "<img src='" + server.URL() + "/picture'>");
  EXPECT_TRUE(Until([&] { return Redness() == 1600 && log.size() == 4; }));
  ASSERT_THAT(server.Requests(), SizeIs(1));
  EXPECT_THAT(server.Requests()[0], StartsWith("GET /picture HTTP/1.1\r\n"));
}

TEST_F(Page, APictureComesOrAnErrorTellsWhy) {
  const auto redirect = [](const std::string& to) { return Answer{{Reply(302, "", "Location: " + to + "\r\n")}}; };
  const Answer picture{{Reply(200, Red())}};
  const std::string here = "<img src='$'>";
  const std::tuple<const char*, std::string, std::vector<Answer>, int, const char*> rows[] = {
      {"far away", here, {redirect("$/1"), redirect("2"), redirect("$"), redirect("?5"), picture}, 1600, ""},
      {"too far", here, {redirect("$/again")}, 0, "302 http"},
      {"to a file", here, {redirect("file:///etc/hostname")}, 0, "302 http"},
      {"missing", here, {{{Reply(404, Red())}}}, 0, "404 http"},
      {"many bytes", here, {{{"HTTP/1.1 200 OK\r\nContent-Length: 16000001\r\n\r\n"}}}, 0, "0 http"},
      {"in the page", "<img src='data:;base64," + toolkit::EncodeBase64(Red()) + "'>", {{}}, 1600, ""}};
  for (const auto& [what, page, answers, red, error] : rows) {
    const FaultServer server(answers, Wire::Plain);
    Load("x" + toolkit::ReplaceAll(page, "$", server.URL()));  // the text cursor is before the text, not the picture
    EXPECT_TRUE(Until([&, &red = red, &error = error] {
      return Redness() == red && log.size() == (*error == '\0' ? 0 : 1);
    })) << what;
    EXPECT_THAT(log.empty() ? "" : log[0], StartsWith(error)) << what;
    EXPECT_LE(server.Requests().size(), 6U) << what;
  }
}

TEST_F(Page, ManyPicturesWaitAndGoWithThePage) {
  const FaultServer silent({}, Wire::Plain, Greeting::Silence);
  const std::string page = Pictures(1000, {&silent});
  Load(page);
  EXPECT_TRUE(Until([&] { return silent.Connections() >= 6; }));
  QTest::qWait(100);
  EXPECT_EQ(silent.Connections(), 6U);
  EXPECT_THAT(log, ElementsAre("0 There are more pictures than are shown."));
  FaultServer late({{{Reply(200, Red())}, Answer::Then::Keep, Answer::Start::WhenReleased}}, Wire::Plain);
  Load("<img src='" + late.URL() + "'>");
  EXPECT_TRUE(Until([&] { return late.Requests().size() == 1; }));
  Load("another");
  late.Release();
  QTest::qWait(100);
  EXPECT_EQ(Redness(), 0);
  EXPECT_THAT(log, IsEmpty());
  Load(page);
  model->Close.Action = nullptr;
  model->toolkit::Window::Close();
  QTest::qWait(100);
}

TEST_F(Page, PicturesThatTakeMuchTimeLeaveTheFirst) {
  const FaultServer red({{{Reply(200, Red())}}}, Wire::Plain);
  std::list<FaultServer> hostile;
  std::vector<const FaultServer*> servers{&red};
  for (const auto& picture : HostilePictures()) {
    hostile.emplace_back(std::vector<Answer>{{{Reply(200, picture.Encoded)}}}, Wire::Plain);
    servers.push_back(&hostile.back());
  }
  Load("x" + Pictures(1, {&red}) + Pictures(59, servers));  // the text cursor is before the text, not a picture
  const auto isOver = [&] { return log.size() + static_cast<std::size_t>(Redness() / 1600) == 60; };
  for (int wait = 0; wait < 9 && !isOver(); ++wait) Until(isOver);
  EXPECT_TRUE(isOver());
  EXPECT_THAT(log, Contains(HasSubstr("too long together")));
  EXPECT_GE(Redness(), 3200);
}

TEST_F(Page, LinksAskTheProgramAlone) {
  toolkit::HTMLViewer elsewhere;
  elsewhere.CancelLoad = [&](const std::string& url) { return log.push_back("new " + url), true; };
  model->Viewer.NewWindow = [&] { return &elsewhere; };
  Load(R"(<p><a href='http://a/?x=1&amp;lt;b&gt;'>first</a> <a href='file:///x'>third</a>
          <p><a href='https://b/' target=_BLANK>second</a>)");
  model->Viewer.CancelLoad = [&](const std::string& url) { return log.push_back("same " + url), true; };
  const auto click = [&](const char* text, Qt::MouseButton button = Qt::LeftButton) {
    return [=, this] {
      QTest::mouseClick(window.windowHandle(), button, {}, view.viewport()->mapTo(&window, PlaceOf(text)));
    };
  };
  const auto tab = [&] { view.moveCursor(QTextCursor::Start), Press(Qt::Key_Tab), Press(Qt::Key_Return); };
  const std::tuple<const char*, std::function<void()>, std::vector<std::string>> rows[] = {
      {"click", click("first"), {"same http://a/?x=1&lt;b>"}},
      {"middle click", click("first", Qt::MiddleButton), {"new http://a/?x=1&lt;b>"}},
      {"new window", click("second"), {"new https://b/"}},
      {"file", click("third"), {}},
      {"Return on a link", tab, {"same http://a/?x=1&lt;b>"}},
      {"back", [&] { Press(Qt::Key_Left, Qt::AltModifier); }, {}}};
  Click(view);
  const QString before = view.document()->toHtml();
  for (const auto& [what, act, expected] : rows) {
    log.clear();
    view.setFocus();
    act();
    EXPECT_EQ(log, expected) << what;
    EXPECT_EQ(view.document()->toHtml(), before) << what;
  }
}

TEST_F(Page, SaysThatItIsCut) {
  model->Viewer.LoadPage(Times(100'000, "<br>"), toolkit::FolderItem(""));
  EXPECT_TRUE(Until([&] { return view.toPlainText().endsWith("The rest of this page is not shown."); }));
}

}  // namespace
