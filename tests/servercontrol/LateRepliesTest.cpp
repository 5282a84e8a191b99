#include "tests/servercontrol/ServerFixture.h"
#include "toolkit/Application.h"

using namespace testing;
using toolkit::TransferFault;

namespace {

struct LateReplies : ServerFixture {
  /// Every call under way at once.
  void SendAll() const {
    Fill({"web"}, 0);
    for (const auto& [path, button] : calls) Press(button);
  }
};

}  // namespace

TEST_F(LateReplies, OnlyTheSecondOfTwoPressesCounts) {
  Fill({"web", "db"}, 0);
  Press(&wServer::btn_containers_stop);
  SentRequest& first = platform.LastRequest();
  window->list_containers.Select(1);
  Press(&wServer::btn_containers_stop);
  SentRequest& second = platform.LastRequest();
  Press(&wServer::btn_containers_start);
  SentRequest& start = platform.LastRequest();
  EXPECT_EQ(Body(second).at("containerName"), "db");
  EXPECT_TRUE(first.IsRunning()) << "it was pressed, and is to be carried out";
  first.Reply(200, R"({"status":"first"})");
  EXPECT_EQ(window->list_containers.ListIndex(), 1);
  second.Reply(200, R"({"status":"second"})");
  SentRequest& list = Sent("containers/list");
  start.Reply(200, R"({"status":"third"})");
  EXPECT_TRUE(window->Busy());
  EXPECT_THAT(platform.Messages, ElementsAre("second", "third"));
  list.Reply(200, R"({"containers":{"0":["old"]}})");
  EXPECT_EQ(window->list_containers.ListCount(), 0);
  Fill({"new"});
  EXPECT_EQ(window->Busy(), Sent("system/information").IsRunning());
  Sent("system/information").Reply(200, "{}");
  EXPECT_FALSE(window->Busy());
  EXPECT_THAT(RowsOf(window->list_containers), ElementsAre("new\trunning\tUp"));
}

TEST_F(LateReplies, TwoWindowsOfOneServerDoNotSeeEachOther) {
  const auto other = window;
  const auto othersRequests = platform.Requests;
  OpenAgain();
  Fill({"web"}, 0);
  Press(&wServer::btn_overview_reload);
  EXPECT_EQ(other->list_containers.ListCount(), 0);
  EXPECT_TRUE(other->btn_overview_reload.Enabled());
  EXPECT_FALSE(other->btn_containers_refresh.Enabled());
  othersRequests[1]->Reply(400, R"({"_error":"theirs"})");
  EXPECT_EQ(window->list_containers.ListIndex(), 0);
  EXPECT_TRUE(other->btn_containers_refresh.Enabled());
  window->Close();
  othersRequests[0]->Reply(200, "{}");
  EXPECT_EQ(other->list_overview.ListCount(), 19);
  EXPECT_EQ(window->list_overview.ListCount(), 0);
}

TEST_F(LateReplies, OfTwoServersEachIsAskedOnceAndAnswersInItsOwnWindowByItsName) {
  Fill({"web"}, 0);
  const auto edge = window;
  server = std::make_shared<CorvaneServer>(CorvaneServer{"core.example", "", "pw", "Core", "ben"});
  OpenAgain();
  const auto core = window;
  Fill({"db"}, 0);
  EXPECT_EQ(edge->Subject() + ", " + core->Subject(), "srv, Core (core.example)");
  for (const auto& [path, button] : calls) {
    if (!NamesContainer(path)) continue;
    SCOPED_TRACE(path);
    const std::size_t before = platform.Requests.size();
    for (const auto& asked : {core, core, edge, core, edge}) window = asked, Press(button);
    ASSERT_EQ(platform.Requests.size(), before + 2);
    EXPECT_EQ(Usable(), "111111");
    for (const auto& [number, asked, about] :
         {std::tuple(1, edge, "web on srv"), {0, core, "db on Core (core.example)"}}) {
      window = asked;
      SentRequest& sent = *platform.Requests[before + static_cast<std::size_t>(number)];
      number == 0 ? sent.Fail(TransferFault::Refused) : sent.Reply(400, R"({"_error":"no"})");
      EXPECT_EQ(platform.Owners.back(), asked.get());
      EXPECT_EQ(platform.LastDialog.About, about);
      Press(button);
      EXPECT_TRUE(platform.LastRequest().IsRunning()) << "it cannot be tried again";
    }
    EXPECT_EQ(platform.Requests.size(), before + 4);
  }
  core->txt_containers_logs.Type("50");
  const std::size_t before = platform.Requests.size();
  core->txt_containers_logs.PressEnter();
  core->list_containers.Activate();
  EXPECT_EQ(platform.Requests.size(), before + 1) << "another number of lines is another request, for once";
}

TEST_F(LateReplies, AMessageMayOutliveItsWindow) {
  for (const char* path : {"system/reboot", "system/reload", "containers/list", "containers/stop", "containers/logs"}) {
    for (const int status : {200, 400}) {
      SCOPED_TRACE(path + std::to_string(status));
      OpenAgain();
      SendAll();
      platform.Messages.clear();
      const std::size_t sent = platform.Requests.size();
      SentRequest& request = Sent(path);
      platform.WhileMessageStands = [this] { std::exchange(window, nullptr)->Close(); };
      request.Reply(status, R"({"_error":"no","status":"no","log":{}})");
      EXPECT_EQ(window, nullptr);
      EXPECT_THAT(platform.Messages, SizeIs(1));
      EXPECT_EQ(platform.Requests.size(), sent);
    }
  }
}

TEST_F(LateReplies, WhatArrivesUnderAMessageWaitsForItsHandlerAndWhatTheUserDoesIsRefused) {
  Fill({"web", "db"}, 0);
  Press(&wServer::btn_overview_reload);
  Press(&wServer::btn_containers_stop);
  SentRequest& list = Sent("containers/list");
  SentRequest& stop = Sent("containers/stop");
  const std::size_t sent = platform.Requests.size();
  platform.WhileMessageStands = [&] {
    stop.Reply(200, R"({"status":"stopped"})");
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
  EXPECT_THAT(platform.Messages, ElementsAre("reloaded", "stopped"));
  EXPECT_NE(&Sent("containers/list"), &list);
  EXPECT_EQ(platform.Requests.size(), sent + 1);
  EXPECT_EQ(window->txt_containers_logs.Text(), "20");
  EXPECT_TRUE(!window->IsClosed() && platform.Quits.empty());
}

TEST_F(LateReplies, WhatArrivedFirstIsShownFirst) {
  SendAll();
  platform.Messages.clear();
  const auto reply = [this](const std::string& path) { Sent(path).Reply(200, R"({"status":")" + path + "\"}"); };
  platform.WhileMessageStands = [&] { reply("system/reload"), reply("containers/stop"); };
  Press(&wServer::btn_overview_restart);
  Sent("containers/start").Fail(toolkit::TransferFault::Refused);
  EXPECT_THAT(platform.Messages, ElementsAre(_, "system/reload", "containers/stop", HasSubstr("refused")));
}

TEST_F(LateReplies, AListThatIsAskedForBetweenTwoMessagesStaysBusy) {
  Fill({"web"}, 0);
  SendAll();
  platform.Messages.clear();
  platform.WhileMessageStands = [&] { Sent("containers/stop").Reply(200, R"({"status":"stopped"})"); };
  Sent("containers/list").Fail(toolkit::TransferFault::Refused);
  EXPECT_THAT(platform.Messages, SizeIs(2));
  EXPECT_TRUE(Sent("containers/list").IsRunning());
  EXPECT_FALSE(window->btn_containers_refresh.Enabled());
}

TEST_F(LateReplies, FiftyWindowsComeAndGoInEveryStageOfTheirRequests) {
  window->Close();
  for (int number = 0; number < 50; ++number) {
    SCOPED_TRACE(number);
    platform.Requests.clear();
    OpenAgain();
    SendAll();
    for (const auto& request : platform.Requests) {
      if (number % 4 > 0) request->BeginReply(number % 3 == 0 ? 400 : 200);
      if (number % 4 > 1) request->ReplyPart(R"({"_error":"no","status":"done","log":{"0":["x"]},)");
      if (number % 4 > 2) request->ReplyPart(R"("containers":{"0":["late"]}})");
    }
    platform.Messages.clear();
    auto requests = std::exchange(platform.Requests, {});
    std::erase_if(requests, [](const auto& request) { return !request->IsRunning(); });
    window->Close();
    const auto kept = number % 5 == 0 ? window : nullptr;
    const std::weak_ptr<wServer> gone = std::exchange(window, nullptr);
    EXPECT_EQ(gone.expired(), !kept);
    for (const auto& request : requests) {
      EXPECT_TRUE(request->IsRunning()) << "not carried out: " << request->Request.URL;
      number % 2 == 0 ? request->EndReply() : request->Fail(toolkit::TransferFault::ClosedEarly);
    }
    EXPECT_TRUE(platform.Messages.empty() && platform.Requests.empty() && platform.OpenWindows().empty());
    EXPECT_EQ(kept ? kept->list_containers.ListCount() : 0, 0);
  }
}
