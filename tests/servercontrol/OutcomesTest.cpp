#include "tests/servercontrol/ServerFixture.h"

using namespace testing;
using toolkit::TransferFault;

namespace {

struct Outcomes : ServerFixture {
  /// Everything can be used but for what `path` takes while it is under way.
  void ExpectBusyWith(const std::string& path) const {
    EXPECT_EQ(window->btn_overview_reload.Enabled(), path != "system/reload");
    EXPECT_EQ(window->overview_progress.Visible(), path == "system/reload");
    EXPECT_EQ(window->btn_containers_refresh.Enabled(), path != "containers/list");
    EXPECT_TRUE(window->btn_overview_refresh.Enabled() && window->btn_overview_restart.Enabled());
    EXPECT_EQ(Usable(), window->list_containers.ListIndex() == -1 ? "000000" : "111111");
    EXPECT_TRUE(window->list_containers.HasHeading());
  }
};

std::function<void(SentRequest&)> Reply(int status, const char* body) {
  return [=](SentRequest& sent) { sent.Reply(status, body); };
}

void CutOff(SentRequest& sent) {
  sent.BeginReply(200, {}, 100);
  sent.ReplyPart(R"({"status":)");
  sent.Fail(TransferFault::ClosedEarly);
}

const struct Outcome {
  const char* name;
  bool isReply;
  std::function<void(SentRequest&)> happen;
  Matcher<std::string> message;
} outcomes[] = {
    {"success", true, Reply(200, R"({"status":"<b>Done</b>"})"), Eq("<b>Done</b>")},
    {"another HTTP status", true, Reply(500, R"({"status":"failed","_error":"x"})"), Eq("failed")},
    {"another type", true, Reply(200, R"({"status":{"0":[1]}})"), Eq(R"({"0":[1]})")},
    {"refused", false, Reply(400, R"({"_error":"<no>","status":"x","containers":{},"log":{}})"), Eq("<no>")},
    {"unreadable", false, Reply(200, "<html>"), HasSubstr("cannot be read: the text is not JSON")},
    {"empty", false, Reply(200, ""), Eq("No data was returned from the Tessen Service.")},
    {"no server", false, [](auto& sent) { sent.Fail(TransferFault::Refused); }, HasSubstr("refused the conn")},
    {"cut off", false, CutOff, HasSubstr("before its reply was complete")},
};

}  // namespace

TEST_F(Outcomes, WhateverBecomesOfACallNothingStaysBusy) {
  const Texts rows{"web\trunning\tUp", "db\trunning\tUp"};
  for (const auto& [path, button] : calls) {
    for (const Outcome& outcome : outcomes) {
      const bool isFetch = path == "system/information" || path == "containers/list" || path == "containers/logs";
      if (outcome.isReply && isFetch) continue;  // no status; what these show has tests of its own
      SCOPED_TRACE(path + ", " + outcome.name);
      OpenAgain();
      Sent("system/information").Reply(200, "{}");
      Fill({"web", "db"}, 1);
      Press(button);
      const std::size_t sent = platform.Requests.size();
      if (path == "system/reload" || path == "containers/list") Press(button);
      ExpectBusyWith(path);
      EXPECT_TRUE(window->Busy());
      platform.Messages.clear();
      const std::size_t windows = platform.OpenWindows().size();
      platform.WhileMessageStands = [&, &path = path] {
        ExpectBusyWith(path);
        EXPECT_FALSE(window->Busy());
        EXPECT_EQ(platform.Requests.size(), sent);
      };
      outcome.happen(Sent(path));
      EXPECT_THAT(platform.Messages, ElementsAre(outcome.message));
      EXPECT_EQ(platform.OpenWindows().size(), windows);
      const bool lists = outcome.isReply && NamesContainer(path);
      ExpectBusyWith(lists ? "containers/list" : "");
      EXPECT_EQ(window->Busy(), lists);
      ASSERT_EQ(platform.Requests.size(), sent + (lists ? 1 : 0));
      EXPECT_EQ(Sent("containers/list").IsRunning(), lists);
      const bool isEmpty = lists || path == "containers/list";
      EXPECT_EQ(RowsOf(window->list_containers), isEmpty ? Texts{} : rows);
      EXPECT_EQ(window->list_containers.ListIndex(), isEmpty ? -1 : 1);
      EXPECT_EQ(window->list_overview.ListCount(), path == "system/information" ? 0 : 19);
    }
  }
}

TEST_F(Outcomes, ContainersAreShownWholeOrNotAtAll) {
  const std::tuple<const char*, Texts, Texts> rows[] = {
      {R"({"containers":{}})", {}, {}},
      {R"({"containers":{"1":["b","c"],"0":["a",1.5,null,"beyond","far"]},"status":1})", {"a\t1.5\t", "b\tc\t"}, {}},
      {R"({"containers":null})", {}, {"The server's reply cannot be shown: it has no “containers”."}},
      {R"({"containers":[["a"]]})", {}, {"The server's reply cannot be shown: its “containers” is no table."}},
      {R"({"containers":{"0":["a"],"2":["c"]}})", {}, {"The server's table cannot be shown: it has no row 1."}},
  };
  for (const auto& [reply, shown, messages] : rows) {
    SCOPED_TRACE(reply);
    platform.Messages.clear();
    Sent("containers/list").Reply(200, reply);
    ExpectBusyWith("");
    EXPECT_EQ(RowsOf(window->list_containers), shown);
    EXPECT_EQ(platform.Messages, messages);
    Press(&wServer::btn_containers_refresh);
  }
}
