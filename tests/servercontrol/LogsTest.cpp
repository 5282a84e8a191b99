#include "servercontrol/wContainerLogs.h"
#include "tests/servercontrol/ServerFixture.h"

using namespace testing;

namespace {

struct Logs : ServerFixture {
  Logs() { Fill({"web"}, 0); }

  static toolkit::Listbox& Lines(toolkit::Window& logs) { return dynamic_cast<wContainerLogs&>(logs).list_logs; }
  SentRequest& Ask() const {
    Press(&wServer::btn_containers_logs);
    return platform.LastRequest();
  }
};

}  // namespace

TEST_F(Logs, OnlyANumberIsSentAndInItsPlainForm) {
  const std::vector<std::pair<Texts, Texts>> rows{
      {{"20", " 20 ", "\t20", "+20", "0020"}, {"20"}},
      {{"+5", "005"}, {"5"}},
      {{"007"}, {"7"}},
      {{"0", "-0", "000"}, {"0"}},
      {{"-1", "-01"}, {"-1"}},
      {{"9223372036854775807"}, {"9223372036854775807"}},
      {{"-9223372036854775808"}, {"-9223372036854775808"}},
      {{"", " ", "abc", "+", "-", "+-5", "- 5", "1 2", "1,000", "0x10", "1.5", "5e3", "٣", "9223372036854775808"}, {}}};
  const Texts complaint{
      "You must provide a number of logs to retrieve. The higher the number the longer the request will take. Enter 0 "
      "to retrieve all logs for a container."};
  for (const auto& [texts, counts] : rows) {
    for (const auto& typed : texts) {
      SCOPED_TRACE(typed);
      platform.Requests.clear();
      platform.Messages.clear();
      window->txt_containers_logs.Type(typed);
      Press(&wServer::btn_containers_logs);
      EXPECT_EQ(window->txt_containers_logs.Text(), typed);
      Texts sent;
      for (const auto& request : platform.Requests) {
        sent.emplace_back(Body(*request).at("logCount").as_string());
        request->Reply(200, R"({"log":{"0":["line"]}})");  // or the next press would ask for the same again
      }
      EXPECT_EQ(sent, counts);
      EXPECT_EQ(platform.Messages, counts.empty() ? complaint : Texts{});
    }
  }
}

TEST_F(Logs, LinesComeInTheOrderOfTheirNumbersIntoAWindowOfTheirOwn) {
  Ask().Reply(200, R"({"log":{"11":["l","hidden"],"2":["c"],"10":["k"],"0":["a\nb"],"9":[9],"1":[],"3":["d"],"4":["e"],
                              "8":["i"],"5":["f"],"7":["h"],"6":["g"]},"note":"n"})");
  SentRequest& again = Ask();
  EXPECT_EQ(Body(again).at("log"), "") << "lines that are shown travel back";
  EXPECT_EQ(Body(again).at("note"), "n");
  again.Reply(200, R"({"log":{"0":["again"]}})");
  EXPECT_EQ(window->list_containers.ListIndex(), 0);
  EXPECT_EQ(Lines(*platform.OpenWindows().back()).FileName(), "web");
  EXPECT_EQ(platform.OpenWindows().back()->Subject(), "web on srv");
  EXPECT_EQ(platform.Requests.size(), 4U) << "the containers were asked for again";
  window->Close();
  ASSERT_THAT(platform.OpenWindows(), SizeIs(2));
  EXPECT_THAT(RowsOf(Lines(*platform.OpenWindows()[0])),
              ElementsAre("a\nb", "", "c", "d", "e", "f", "g", "h", "i", "9", "k", "l"));
  EXPECT_THAT(RowsOf(Lines(*platform.OpenWindows()[1])), ElementsAre("again"));
  toolkit::Window& logs = *platform.OpenWindows()[0];
  EXPECT_EQ(Lines(logs).ListIndex(), 11) << "the newest line is not the one to begin with";
  EXPECT_EQ(logs.Title(), "Corvane - Container Logs");
  logs.Resize({.Width = 1, .Height = 1000});
  EXPECT_EQ(logs.PlaceOf(Lines(logs)), (toolkit::Rect{0, 0, 500, 1000}));
  EXPECT_THAT(platform.Quits, IsEmpty());
}

TEST_F(Logs, AReplyWithoutLinesGivesAMessageAndNoWindow) {
  for (const char* reply : {"{}", R"({"log":null})", R"({"log":{}})"}) Ask().Reply(200, reply);
  EXPECT_THAT(platform.Messages, Each("No logs returned for this container."));
  platform.Messages.clear();
  for (const char* reply : {R"({"log":[["a"]]})", R"({"log":{"0":["a"],"2":["c"]}})"}) Ask().Reply(200, reply);
  EXPECT_THAT(platform.Messages, ElementsAre(HasSubstr("“log” is no table"), HasSubstr("no row 1")));
  EXPECT_THAT(platform.OpenWindows(), SizeIs(1));
}
