#include "servercontrol/wContainerLogs.h"
#include "tests/servercontrol/ServerFixture.h"

using namespace testing;
namespace json = boost::json;

namespace {

struct ServerWindow : ServerFixture {
  SentRequest& AskForLogs() const {
    Press(&wServer::btn_containers_logs);
    return platform.LastRequest();
  }
};

}  // namespace

TEST_F(ServerWindow, AsksForBothTabsAtTheReportedName) {
  server->Network_Hostname = "HTTPS://reported";
  platform.Requests.clear();
  OpenAgain();
  Press(&wServer::btn_overview_webui);
  EXPECT_THAT(platform.OpenedURLs, ElementsAre("HTTPS://reported:1701"));
  ASSERT_EQ(platform.Requests.size(), 2U);
  EXPECT_EQ(platform.Requests[0]->Request.URL, "HTTPS://reported:1701/api/v1/system/information");
  EXPECT_EQ(platform.Requests[1]->Request.URL, "HTTPS://reported:1701/api/v1/containers/list");
  platform.Requests[1]->Reply(200, "{}");
  EXPECT_THAT(platform.Messages, ElementsAre(HasSubstr("it has no “containers”")));
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
  EXPECT_EQ(Usable(), "000000");
  Fill({"web", "service_dunmere", "service_dunmere2", "my service_dunmere"});
  for (const int row : {0, 1, 2, 1, 3, -1, 1, -1}) {
    window->list_containers.Select(row);
    EXPECT_EQ(Usable(), row == -1 ? "000000" : row == 1 ? "100000" : "111111") << row;
  }
  window->list_containers.Select(0);
  Press(&wServer::btn_containers_refresh);
  EXPECT_EQ(Usable(), "000000");
  const std::size_t before = platform.Requests.size();
  for (const auto& [path, button] : calls) {
    if (NamesContainer(path)) ((*window).*button).Action();
  }
  EXPECT_EQ(platform.Requests.size(), before) << "no row was selected";
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
  EXPECT_THAT(platform.Messages, Each("Are you sure you want to restart?"));
}

TEST_F(ServerWindow, OnlyANumberOfLinesIsSent) {
  Fill({"web"}, 0);
  for (const auto& [typed, count] : {std::pair("\t+020 ", "20"),
                                     {"-0", "0"},
                                     {"-01", "-1"},
                                     {"", ""},
                                     {"+-5", ""},
                                     {"1,000", ""},
                                     {"0x10", ""},
                                     {"1.5", ""},
                                     {"٣", ""},
                                     {"9223372036854775808", ""}}) {
    platform.Messages.clear();
    const std::size_t before = platform.Requests.size();
    window->txt_containers_logs.Type(typed);
    Press(&wServer::btn_containers_logs);
    const bool isNumber = *count != '\0';
    EXPECT_EQ(platform.Messages.size(), isNumber ? 0U : 1U) << typed;
    ASSERT_EQ(platform.Requests.size(), before + (isNumber ? 1 : 0)) << typed;
    if (!isNumber) continue;
    EXPECT_EQ(Body(platform.LastRequest()).at("logCount"), count) << typed;
    platform.LastRequest().Reply(200, R"({"log":{"0":["line"]}})");  // while this request runs, none is sent
  }
}

TEST_F(ServerWindow, LogsComeInOrderInTheirOwnWindow) {
  Fill({"web"}, 0);
  AskForLogs().Reply(200, R"({"log":{"10":["k","hidden"],"2":["c"],"0":["a\nb"],"9":[9],"1":[],"3":["d"],"4":["e"],
                              "8":["i"],"5":["f"],"7":["h"],"6":["g"]},"note":"n"})");
  EXPECT_EQ(Body(AskForLogs()).at("log"), "") << "lines that are shown travel back";
  EXPECT_EQ(platform.Requests.size(), 4U) << "the containers were asked for again";
  window->Close();
  ASSERT_THAT(platform.OpenWindows(), SizeIs(1));
  toolkit::Window& logs = *platform.OpenWindows()[0];
  const toolkit::Listbox& lines = dynamic_cast<wContainerLogs&>(logs).list_logs;
  EXPECT_THAT(RowsOf(lines), ElementsAre("a\nb", "", "c", "d", "e", "f", "g", "h", "i", "9", "k"));
  EXPECT_EQ(lines.ListIndex(), 10) << "the newest line is not the one to begin with";
  EXPECT_EQ(lines.FileName() + ", " + logs.Subject(), "web, web on srv");
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
