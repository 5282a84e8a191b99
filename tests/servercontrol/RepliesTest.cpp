#include "tests/servercontrol/ServerFixture.h"
#include "toolkit/Application.h"

using namespace testing;
using toolkit::TransferFault;

namespace {

struct Replies : ServerFixture {
  /// Everything is enabled except what the running call to `path` disables.
  void ExpectBusyWith(const std::string& path) const {
    EXPECT_EQ(window->btn_overview_reload.Enabled(), path != "system/reload");
    EXPECT_EQ(window->overview_progress.Visible(), path == "system/reload");
    EXPECT_EQ(window->btn_containers_refresh.Enabled(), path != "containers/list");
    EXPECT_TRUE(window->btn_overview_refresh.Enabled() && window->btn_overview_restart.Enabled());
    EXPECT_EQ(Usable(), window->list_containers.ListIndex() == -1 ? "000000" : "111111");
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
  const char* Name;
  bool IsReply;
  std::function<void(SentRequest&)> Happen;
  Matcher<std::string> Message;
} outcomes[] = {
    {"success", true, Reply(500, R"({"status":"<b>Done</b>","_error":"x"})"), Eq("<b>Done</b>")},
    {"refused", false, Reply(400, R"({"_error":"<no>","status":"x","containers":{},"log":{}})"), Eq("<no>")},
    {"unreadable", false, Reply(200, "<html>"), HasSubstr("cannot be read: the text is not JSON")},
    {"no server", false, [](auto& sent) { sent.Fail(TransferFault::Refused); }, HasSubstr("refused the conn")},
    {"cut off", false, CutOff, HasSubstr("before its reply was complete")},
};

}  // namespace

TEST_F(Replies, WhateverBecomesOfACallNothingStaysBusy) {
  for (const auto& [path, button] : calls) {
    for (const Outcome& outcome : outcomes) {
      const bool isFetch = path == "system/information" || path == "containers/list" || path == "containers/logs";
      if (outcome.IsReply && isFetch) continue;  // they show no status; tested elsewhere
      SCOPED_TRACE(path + ", " + outcome.Name);
      const auto begin = [&, &path = path, &button = button] {
        OpenAgain();
        Sent("system/information").Reply(200, "{}");
        Fill({"web", "db"}, 1);
        Press(button);
        if (path == "system/reload" || path == "containers/list") Press(button);
        platform.Messages.clear();
      };
      begin();
      ExpectBusyWith(path);
      EXPECT_TRUE(window->Busy());
      const std::size_t sent = platform.Requests.size();
      const std::size_t windows = platform.OpenWindows().size();
      platform.WhileMessageStands = [&, &path = path] {
        ExpectBusyWith(path);
        EXPECT_FALSE(window->Busy());
        EXPECT_EQ(platform.Requests.size(), sent);
      };
      outcome.Happen(Sent(path));
      EXPECT_THAT(platform.Messages, ElementsAre(outcome.Message));
      EXPECT_EQ(platform.OpenWindows().size(), windows);
      const bool lists = outcome.IsReply && NamesContainer(path);
      ExpectBusyWith(lists ? "containers/list" : "");
      EXPECT_EQ(window->Busy(), lists);
      ASSERT_EQ(platform.Requests.size(), sent + (lists ? 1 : 0));
      const bool isEmpty = lists || path == "containers/list";
      EXPECT_EQ(RowsOf(window->list_containers), isEmpty ? Texts{} : Texts({"web\trunning\tUp", "db\trunning\tUp"}));
      EXPECT_EQ(window->list_containers.ListIndex(), isEmpty ? -1 : 1);
      EXPECT_EQ(window->list_overview.ListCount(), path == "system/information" ? 0 : 19);

      begin();
      platform.Requests.erase(platform.Requests.begin(), platform.Requests.end() - 1);
      SentRequest& last = platform.LastRequest();
      platform.WhileMessageStands = [this] { std::exchange(window, nullptr)->Close(); };
      outcome.Happen(last);
      EXPECT_EQ(window, nullptr) << "no message stood";
      EXPECT_EQ(platform.Messages.size() + platform.Requests.size(), 2U) << "the window was closed under a message";
    }
  }
}

TEST_F(Replies, OnlyTheSecondOfTwoPressesCounts) {
  Fill({"web", "db"}, 0);
  Press(&wServer::btn_containers_stop);
  SentRequest& first = platform.LastRequest();
  window->list_containers.Select(1);
  Press(&wServer::btn_containers_stop);
  SentRequest& second = platform.LastRequest();
  EXPECT_EQ(Body(second).at("containerName"), "db");
  EXPECT_TRUE(first.IsRunning()) << "it was pressed, and is to be carried out";
  first.Reply(200, R"({"status":"first"})");
  EXPECT_EQ(window->list_containers.ListIndex(), 1);
  second.Reply(200, R"({"status":"second"})");
  EXPECT_THAT(platform.Messages, ElementsAre("second"));
  Sent("containers/list").Reply(200, R"({"containers":{"0":["new"]}})");
  EXPECT_THAT(RowsOf(window->list_containers), ElementsAre("new\t\t"));
}

TEST_F(Replies, OfTwoServersEachIsAskedOnceAndSoIsTold) {
  Fill({"web"}, 0);
  const auto edge = window;
  server = std::make_shared<CorvaneServer>(CorvaneServer{"core.example", "", "pw", "Core", "ben"});
  OpenAgain();
  const auto core = window;
  Fill({"db"}, 0);
  for (const auto& [path, button] : calls) {
    if (!NamesContainer(path)) continue;
    SCOPED_TRACE(path);
    platform.Requests.clear();
    for (const auto& asked : {core, core, edge, core, edge}) window = asked, Press(button);
    ASSERT_EQ(platform.Requests.size(), 2U);
    for (const auto& [asked, about] : {std::pair(core, "db on Core (core.example)"), {edge, "web on srv"}}) {
      window = asked;
      platform.Requests[asked == core ? 0 : 1]->Reply(400, R"({"_error":"no"})");
      EXPECT_EQ(platform.Owners.back(), asked.get());
      EXPECT_EQ(platform.LastDialog.About, about);
      Press(button);
      EXPECT_TRUE(platform.LastRequest().IsRunning()) << "it cannot be tried again";
    }
  }
}

TEST_F(Replies, RepliesWaitAndActsAreRefusedUnderBoxes) {
  SendAll();
  Fill({"web", "db"}, 0);
  platform.Messages.clear();
  SentRequest& list = Sent("containers/list");
  const std::size_t sent = platform.Requests.size();
  platform.WhileMessageStands = [&] {
    Sent("containers/stop").Reply(200, R"({"status":"stopped"})");
    Sent("containers/start").Fail(TransferFault::Refused);
    for (const auto& [path, button] : calls) ((*window).*button).Press();
    window->list_containers.Select(1);
    window->txt_containers_logs.Type("7");
    window->CloseAsUser();
    toolkit::Quit();
    EXPECT_THAT(platform.Messages, ElementsAre("reloaded"));
    EXPECT_TRUE(window->overview_progress.Visible());
    platform.WhileMessageStands = [&] {
      EXPECT_TRUE(window->btn_overview_reload.Enabled() && !window->overview_progress.Visible());
      EXPECT_EQ(window->list_containers.ListIndex(), 0);
      EXPECT_EQ(platform.Requests.size(), sent);
    };
  };
  Sent("system/reload").Reply(200, R"({"status":"reloaded"})");
  EXPECT_THAT(platform.Messages, ElementsAre("reloaded", "stopped", HasSubstr("refused")));
  EXPECT_NE(&Sent("containers/list"), &list);
  EXPECT_EQ(platform.Requests.size(), sent + 1);
  EXPECT_EQ(window->txt_containers_logs.Text(), "20");
  EXPECT_TRUE(!window->IsClosed() && platform.Quits.empty());
}

TEST_F(Replies, NothingReachesAWindowThatWasClosed) {
  window->Close();
  for (int row = 0; row < 8; ++row) {
    SCOPED_TRACE(row);
    platform.Requests.clear();
    OpenAgain();
    SendAll();
    std::erase_if(platform.Requests, [](const auto& request) { return !request->IsRunning(); });
    const auto requests = std::exchange(platform.Requests, {});
    for (const auto& request : requests) {
      request->BeginReply((row & 1) != 0 ? 400 : 200);
      request->ReplyPart(R"({"_error":"no","status":"done","log":{"0":["x"]},)");
    }
    platform.Messages.clear();
    window->Close();
    const auto kept = (row & 2) != 0 ? window : nullptr;
    const std::weak_ptr<wServer> gone = std::exchange(window, nullptr);
    EXPECT_EQ(gone.expired(), !kept);
    for (const auto& request : requests) {
      EXPECT_TRUE(request->IsRunning()) << "not carried out: " << request->Request.URL;
      request->ReplyPart(R"("containers":{"0":["late"]}})");
      (row & 4) != 0 ? request->EndReply() : request->Fail(TransferFault::ClosedEarly);
    }
    EXPECT_TRUE(platform.Messages.empty() && platform.Requests.empty() && platform.OpenWindows().empty());
    EXPECT_EQ(kept ? kept->list_containers.ListCount() : 0, 0);
  }
}
