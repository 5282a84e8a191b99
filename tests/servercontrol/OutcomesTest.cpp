#include <functional>

#include "tests/servercontrol/ServerFixture.h"

using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;
using toolkit::TransferFault;

namespace {

class Outcomes : public ServerFixture {
 protected:
  /// Everything can be used but for what `path` takes while it is under way.
  void ExpectBusyWith(const std::string& path) const {
    EXPECT_EQ(window->btn_overview_reload.Enabled(), path != "system/reload");
    EXPECT_EQ(window->overview_progress.Visible(), path == "system/reload");
    EXPECT_EQ(window->btn_containers_refresh.Enabled(), path != "containers/list");
    EXPECT_TRUE(window->btn_overview_refresh.Enabled() && window->btn_overview_restart.Enabled());
    EXPECT_EQ(Usable(), window->list_containers.ListIndex() == -1 ? "000000" : "111111");
    EXPECT_TRUE(window->list_containers.HasHeading());
    EXPECT_EQ(window->list_containers.Heading(0) + window->list_containers.Heading(1) +
                  window->list_containers.Heading(2) + window->list_containers.Heading(3),
              "Name:State:Status:Backup:");
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

enum class End { Reply, Failure };
const struct Outcome {
  const char* name;
  End end;
  std::function<void(SentRequest&)> happen;
  testing::Matcher<std::string> message;
} outcomes[] = {
    {"success", End::Reply, Reply(200, R"({"status":"<b>Done</b>"})"), Eq("<b>Done</b>")},
    {"another HTTP status", End::Reply, Reply(500, R"({"status":"failed","_error":"x"})"), Eq("failed")},
    {"an empty text", End::Reply, Reply(200, R"({"status":""})"), Eq("")},
    {"without the member", End::Reply, Reply(200, "{}"), Eq("")},
    {"another type", End::Reply, Reply(200, R"({"status":{"0":[1]}})"), Eq(R"({"0":[1]})")},
    {"refused", End::Failure, Reply(400, R"({"_error":"<no>","status":"x","containers":{},"log":{}})"), Eq("<no>")},
    {"refused, no reason", End::Failure, Reply(400, "{}"), Eq("The server refused the request and gave no reason.")},
    {"refused unreadably", End::Failure, Reply(400, "<html>"), HasSubstr("cannot be read: the text is not JSON")},
    {"no object", End::Failure, Reply(200, "[]"), HasSubstr("cannot be read: the JSON is not an object")},
    {"no UTF-8", End::Failure, Reply(200, "{\"status\":\"\xFF\"}"), HasSubstr("cannot be read: the text is not UTF-8")},
    {"empty", End::Failure, Reply(200, ""), Eq("No data was returned from the Tessen Service.")},
    {"no server", End::Failure, [](auto& sent) { sent.Fail(TransferFault::Refused); }, HasSubstr("refused the conn")},
    {"cut off", End::Failure, CutOff, HasSubstr("before its reply was complete")},
};

enum class AtReply { ShowsStatus, ShowsStatusAndLists, IsTestedElsewhere };
const struct Call {
  std::string path;
  ServerButton button;
  AtReply atReply;
} calls[] = {
    {"system/information", &wServer::btn_overview_refresh, AtReply::IsTestedElsewhere},
    {"system/reboot", &wServer::btn_overview_restart, AtReply::ShowsStatus},
    {"system/reload", &wServer::btn_overview_reload, AtReply::ShowsStatus},
    {"containers/list", &wServer::btn_containers_refresh, AtReply::IsTestedElsewhere},
    {"containers/restart", &wServer::btn_containers_restart, AtReply::ShowsStatusAndLists},
    {"containers/start", &wServer::btn_containers_start, AtReply::ShowsStatusAndLists},
    {"containers/stop", &wServer::btn_containers_stop, AtReply::ShowsStatusAndLists},
    {"containers/backup", &wServer::btn_containers_backup, AtReply::ShowsStatusAndLists},
    {"containers/logs", &wServer::btn_containers_logs, AtReply::IsTestedElsewhere},
};

}  // namespace

TEST_F(Outcomes, WhateverBecomesOfACallNothingStaysBusy) {
  const Texts rows{"web\trunning\tUp", "db\trunning\tUp"};
  for (const Call& call : calls) {
    for (const Outcome& outcome : outcomes) {
      if (outcome.end == End::Reply && call.atReply == AtReply::IsTestedElsewhere) continue;
      SCOPED_TRACE(call.path + ", " + outcome.name);
      OpenAgain();
      Sent("system/information").Reply(200, "{}");
      Fill({"web", "db"}, 1);
      Press(call.button);
      const std::size_t sent = platform.Requests.size();
      if (call.path == "system/reload" || call.path == "containers/list") Press(call.button);
      ExpectBusyWith(call.path);
      platform.Messages.clear();
      platform.WindowLog.clear();
      platform.WhileMessageStands = [&] {
        ExpectBusyWith(call.path);
        EXPECT_EQ(platform.Requests.size(), sent);
      };
      outcome.happen(Sent(call.path));
      EXPECT_THAT(platform.Messages, ElementsAre(outcome.message));
      EXPECT_THAT(platform.WindowLog, IsEmpty());
      const bool lists = outcome.end == End::Reply && call.atReply == AtReply::ShowsStatusAndLists;
      ExpectBusyWith(lists ? "containers/list" : "");
      ASSERT_EQ(platform.Requests.size(), sent + (lists ? 1 : 0));
      EXPECT_EQ(Sent("containers/list").IsRunning(), lists);
      const bool isEmpty = lists || call.path == "containers/list";
      EXPECT_EQ(RowsOf(window->list_containers), isEmpty ? Texts{} : rows);
      EXPECT_EQ(window->list_containers.ListIndex(), isEmpty ? -1 : 1);
      EXPECT_EQ(window->list_overview.ListCount(), call.path == "system/information" ? 0 : 19);
    }
  }
}

TEST_F(Outcomes, ContainersAreShownWholeOrNotAtAll) {
  const struct {
    const char* reply;
    Texts rows;
    const char* message;
  } rows[] = {
      {R"({"containers":{}})", {}, ""},
      {R"({"containers":{"1":["b","c"],"0":["a"]},"status":1})", {"a\t\t", "b\tc\t"}, ""},
      {R"({"containers":{"0":[],"1":[1.5,null,"c","beyond","far"]}})", {"\t\t", "1.5\t\tc"}, ""},
      {"{}", {}, "no “containers”"},
      {R"({"containers":null})", {}, "no “containers”"},
      {R"({"containers":[["a"]]})", {}, "“containers” is no table"},
      {R"({"containers":"a"})", {}, "“containers” is no table"},
      {R"({"containers":{"0":["a"],"2":["c"]}})", {}, "no row 1"},
      {R"({"containers":{"0":["a"],"1":"b"}})", {}, "row 1 is no row"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reply);
    platform.Messages.clear();
    Sent("containers/list").Reply(200, row.reply);
    ExpectBusyWith("");
    EXPECT_EQ(RowsOf(window->list_containers), row.rows);
    EXPECT_EQ(window->list_containers.ListIndex(), -1);
    EXPECT_THAT(platform.Messages, testing::SizeIs(*row.message == '\0' ? 0 : 1));
    for (const auto& message : platform.Messages) EXPECT_THAT(message, HasSubstr(row.message));
    Press(&wServer::btn_containers_refresh);
    EXPECT_THAT(RowsOf(window->list_containers), IsEmpty());
  }
}

TEST_F(Outcomes, RefusedOpeningRequestsGiveABoxEachInTheOrderOfTheirArrival) {
  for (const Texts& order :
       {Texts{"containers/list", "system/information"}, {"system/information", "containers/list"}}) {
    OpenAgain();
    platform.Messages.clear();
    for (const auto& path : order) Sent(path).Reply(400, R"({"_error":")" + path + "\"}");
    EXPECT_EQ(platform.Messages, order);
    EXPECT_EQ(window->list_overview.ListCount() + window->list_containers.ListCount(), 0);
    ExpectBusyWith("");
  }
}
