#include "servercontrol/ControlAPI.h"
#include "servercontrol/wContainerLogs.h"
#include "tests/servercontrol/ServerFixture.h"

using namespace testing;
namespace json = boost::json;

namespace {

struct ServerWindow : ServerFixture {
  static toolkit::Listbox& Lines(toolkit::Window& logs) { return dynamic_cast<wContainerLogs&>(logs).list_logs; }
  SentRequest& AskForLogs() const {
    Press(&wServer::btn_containers_logs);
    return platform.LastRequest();
  }
};

}  // namespace

TEST_F(ServerWindow, AsksForBothTabsAtTheReportedName) {
  server->Network_Hostname = "HTTPS://reported";
  server->Network_IPv4 = "192.0.2.1";
  platform.Requests.clear();
  OpenAgain();
  for (const bool hasBrowser : {true, false}) {
    platform.HasBrowser = hasBrowser;
    Press(&wServer::btn_overview_webui);
  }
  EXPECT_THAT(platform.OpenedURLs, Each("HTTPS://reported:1701"));
  EXPECT_THAT(platform.Messages, ElementsAre(EndsWith("\nHTTPS://reported:1701"))) << "for want of a browser";
  ASSERT_EQ(platform.Requests.size(), 2U);
  EXPECT_EQ(platform.Requests[0]->Request.URL, "HTTPS://reported:1701/api/v1/system/information");
  EXPECT_EQ(platform.Requests[1]->Request.URL, "HTTPS://reported:1701/api/v1/containers/list");
}

TEST_F(ServerWindow, EachCallSendsKeysAndItsLastReply) {
  const json::object left =
      json::parse(R"({"status":"s","kept":[{},2.5,null,true],"username":"x","password":null,"log":[]})").as_object();
  for (const auto& [path, button] : calls) {
    SCOPED_TRACE(path);
    const auto send = [&, &path = path, &button = button]() -> SentRequest& {
      if (NamesContainer(path)) Fill({"other", "wéb \"1\" 🦊"}, 1);
      const std::size_t before = platform.Requests.size();
      Press(button);
      EXPECT_EQ(platform.Requests.size(), before + 1);
      return platform.LastRequest();
    };
    server->Username = "amy";
    OpenAgain();
    const bool isAskedAtFirst = path == "system/information" || path == "containers/list";
    SentRequest& first = isAskedAtFirst ? Sent(path) : send();
    json::object keys{{"username", "amy"}, {"password", "pw"}};
    if (NamesContainer(path)) keys["containerName"] = "wéb \"1\" 🦊";
    if (path == "containers/logs") keys["logCount"] = "20";
    EXPECT_EQ(Body(first), keys);
    EXPECT_EQ(first.Request.URL, "https://srv:1701/api/v1/" + path);
    EXPECT_EQ(first.Request.Certificates, toolkit::CertificateCheck::Skipped);
    first.Reply(200, json::serialize(left));
    server->Username = "ben";
    keys["username"] = "ben";
    keys.insert(left.begin(), left.end());
    EXPECT_EQ(Body(send()), keys);
  }
}

TEST_F(ServerWindow, WhatCanBeDoneFollowsTheSelection) {
  const Texts names{"web", "service_dunmere", "service_dunmere2", "my service_dunmere", "Service_Dunmere", ""};
  EXPECT_EQ(Usable(), "000000");
  Fill(names);
  for (int step = 0; step < 49; ++step) {
    for (const int row : {step / 7 - 1, step % 7 - 1}) {
      window->list_containers.Select(row);
      EXPECT_EQ(Usable(), row == -1 ? "000000" : row == 1 ? "100000" : "111111") << step << ": " << row;
    }
  }
  Press(&wServer::btn_containers_refresh);
  EXPECT_EQ(Usable(), "000000");
  EXPECT_EQ(window->list_containers.ListCount(), 0);
  const std::size_t before = platform.Requests.size();
  for (const auto& [path, button] : calls) {
    if (NamesContainer(path)) ((*window).*button).Action();
  }
  EXPECT_EQ(platform.Requests.size(), before) << "no row was selected";
  EXPECT_FALSE(window->btn_containers_backup.Visible());
}

TEST_F(ServerWindow, TheOverviewShowsEveryFactAsItCame) {
  json::object reply{{"unknown", 1}};
  Texts expected;
  for (const auto& [label, key] : ControlAPI::facts) {
    const std::string fact = key == "cpuLoad" ? "" : "<b>" + std::string(key);
    if (!fact.empty()) reply[key] = fact;
    expected.push_back(std::string(label) + "\t" + fact);
  }
  Sent("system/information").Reply(503, json::serialize(reply));
  EXPECT_EQ(RowsOf(window->list_overview), expected);
  Press(&wServer::btn_overview_refresh);
  EXPECT_THAT(RowsOf(window->list_overview), IsEmpty());
}

TEST_F(ServerWindow, ARebootIsAskedAboutFirst) {
  using enum toolkit::DialogButton;
  for (const auto& [answer, closes, sent] : {std::tuple(Cancel, false, 0U), {Action, false, 1U}, {Action, true, 0U}}) {
    platform.Requests.clear();
    platform.Answer = answer;
    platform.WhileMessageStands = [&, closes = closes] {
      EXPECT_THAT(platform.Requests, IsEmpty());
      if (closes) window->Close();
    };
    Press(&wServer::btn_overview_restart);
    EXPECT_THAT(platform.Requests, SizeIs(sent));
  }
  const toolkit::MessageDialog& dialog = platform.LastDialog;
  EXPECT_THAT(platform.Messages, Each("Are you sure you want to restart?"));
  EXPECT_TRUE(dialog.CancelButton.Visible && !dialog.AlternateActionButton.Visible);
}

TEST_F(ServerWindow, ContainersAreShownWholeOrNotAtAll) {
  const std::tuple<const char*, Texts, Texts> rows[] = {
      {R"({"containers":{}})", {}, {}},
      {R"({"containers":{"1":["b","c"],"0":["a",1.5,null,"beyond","far"]},"status":1})", {"a\t1.5\t", "b\tc\t"}, {}},
      {R"({"containers":null})", {}, {"The server's reply cannot be shown: it has no “containers”."}},
      {R"({"containers":[["a"]]})", {}, {"The server's reply cannot be shown: its “containers” is no table."}},
      {R"({"containers":{"0":["a"],"2":["c"]}})", {}, {"The server's table cannot be shown: it has no row 1."}},
  };
  for (const auto& [reply, shown, messages] : rows) {
    platform.Messages.clear();
    Sent("containers/list").Reply(200, reply);
    EXPECT_TRUE(window->btn_containers_refresh.Enabled() && window->list_containers.HasHeading()) << reply;
    EXPECT_EQ(RowsOf(window->list_containers), shown);
    EXPECT_EQ(platform.Messages, messages);
    Press(&wServer::btn_containers_refresh);
  }
}

TEST_F(ServerWindow, OnlyANumberOfLinesIsSent) {
  Fill({"web"}, 0);
  const std::pair<const char*, Texts> rows[] = {
      {"20", {"20", " 20 ", "\t20", "+20", "0020"}},
      {"0", {"0", "-0", "000"}},
      {"-1", {"-1", "-01"}},
      {"-9223372036854775808", {"-9223372036854775808"}},
      {"", {"", " ", "abc", "+", "+-5", "- 5", "1 2", "1,000", "0x10", "1.5", "5e3", "٣", "9223372036854775808"}}};
  for (const auto& [count, texts] : rows) {
    for (const auto& typed : texts) {
      platform.Messages.clear();
      const std::size_t before = platform.Requests.size();
      window->txt_containers_logs.Type(typed);
      Press(&wServer::btn_containers_logs);
      const bool isNumber = *count != '\0';
      EXPECT_EQ(platform.Messages.size(), isNumber ? 0U : 1U) << typed;
      ASSERT_EQ(platform.Requests.size(), before + (isNumber ? 1 : 0)) << typed;
      if (!isNumber) continue;
      EXPECT_EQ(Body(platform.LastRequest()).at("logCount"), count) << typed;
      platform.LastRequest().Reply(200, R"({"log":{"0":["line"]}})");  // or the same would not be asked for again
    }
  }
  EXPECT_THAT(platform.Messages, ElementsAre(StartsWith("You must provide a number of logs to retrieve.")));
}

TEST_F(ServerWindow, LogsComeInOrderInTheirOwnWindow) {
  Fill({"web"}, 0);
  AskForLogs().Reply(200, R"({"log":{"10":["k","hidden"],"2":["c"],"0":["a\nb"],"9":[9],"1":[],"3":["d"],"4":["e"],
                              "8":["i"],"5":["f"],"7":["h"],"6":["g"]},"note":"n"})");
  SentRequest& again = AskForLogs();
  EXPECT_EQ(Body(again).at("log"), "") << "lines that are shown travel back";
  EXPECT_EQ(Body(again).at("note"), "n");
  again.Reply(200, R"({"log":{"0":["again"]}})");
  EXPECT_EQ(platform.Requests.size(), 4U) << "the containers were asked for again";
  window->Close();
  ASSERT_THAT(platform.OpenWindows(), SizeIs(2));
  toolkit::Window& logs = *platform.OpenWindows()[0];
  EXPECT_THAT(RowsOf(Lines(logs)), ElementsAre("a\nb", "", "c", "d", "e", "f", "g", "h", "i", "9", "k"));
  EXPECT_THAT(RowsOf(Lines(*platform.OpenWindows()[1])), ElementsAre("again"));
  EXPECT_EQ(Lines(logs).ListIndex(), 10) << "the newest line is not the one to begin with";
  EXPECT_EQ(Lines(logs).FileName() + ", " + logs.Subject(), "web, web on srv");
  EXPECT_THAT(platform.Quits, IsEmpty());
}

TEST_F(ServerWindow, AReplyWithoutLinesOpensNoWindow) {
  Fill({"web"}, 0);
  for (const char* reply :
       {"{}", R"({"log":null})", R"({"log":{}})", R"({"log":[["a"]]})", R"({"log":{"0":["a"],"2":["c"]}})"})
    AskForLogs().Reply(200, reply);
  const std::string none = "No logs returned for this container.";
  EXPECT_THAT(platform.Messages, ElementsAre(none, none, none, HasSubstr("“log” is no table"), HasSubstr("no row 1")));
  EXPECT_THAT(platform.OpenWindows(), SizeIs(1));
}
