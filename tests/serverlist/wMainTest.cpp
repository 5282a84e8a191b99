#include <boost/json/parse.hpp>
#include <gmock/gmock.h>

#include "serverlist/CorvaneClient.h"
#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/Product.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/TextFile.h"

using namespace std::string_literals;
using boost::json::parse;
using CorvaneClient::Servers;
using namespace testing;

namespace {

constexpr const char* reply =
    R"({"networkHostname":" named ","networkIPv4":"192.0.2.1","systemName":"<b>\"B\u0000x\"\\\r\n 🚀","load":8})";
const std::string systemName = "<b>\"B\0x\"\\\r\n 🚀"s;  // as in the reply

struct ServerList : Test {
  ServerList() {
    platform.WhileWaiting = [this] { platform.LastRequest().Reply(404, ""); };  // the update check
    OpenWindow();
  }
  void TearDown() override {
    Servers.clear();
    for (const auto& message : platform.Messages) EXPECT_THAT(message, Not(HasSubstr("pässw0rd")));
  }

  void OpenWindow() {
    window = std::make_shared<wMain>([this](const auto& server) { opened.push_back(server); });
    window->Show();
  }
  void Submit(const std::string& host, const std::string& user, const std::string& password) const {
    window->txtHostname.Type(host);
    window->txtUsername.Type(user);
    window->txtPassword.Type(password);
    window->btnAddServer.Press();
  }
  SentRequest& Add() const {
    Submit("srv", "amy", "pässw0rd");
    return platform.LastRequest();
  }
  [[nodiscard]] std::string Form() const {
    return window->txtHostname.Text() + "|" + window->txtUsername.Text() + "|" + window->txtPassword.Text();
  }
  void ExpectNothingAdded() const {
    EXPECT_EQ(Servers.size() + static_cast<std::size_t>(window ? window->listServers.ListCount() : 0), 0U);
  }

  HandPlatform platform;
  App app{{1, 0, 12}};
  std::vector<std::shared_ptr<CorvaneServer>> opened;
  std::shared_ptr<wMain> window;
};

}  // namespace

TEST(CorvaneClient, SanitizesHostnames) {
  const std::pair<const char*, const char*> rows[] = {
      {"srv", "https://srv:1701"},           {"https://srv:1701", "https://srv:1701"},
      {"HTTPS://srv", "HTTPS://srv:1701"},   {"[::1]:1701", "https://[::1]:1701"},
      {"srv:8080", "https://srv:8080:1701"}, {"http://srv", "https://http://srv:1701"},
  };
  for (const auto& [host, base] : rows) EXPECT_EQ(CorvaneClient::Sanitize_Hostname(host), base) << host;
  for (const char* host : {"srv", "https://srv:1701", "HTTPS://10.0.0.5", "[::1]:1701"})
    EXPECT_EQ(CorvaneClient::HintForHostname(host), "") << host;
  for (const char* host :
       {"http://srv", "srv/", "https://srv:1701/", "srv:8080", " srv", "amy@srv", "srv\n1", "https://"})
    EXPECT_THAT(CorvaneClient::HintForHostname(host), StartsWith(" Type the name")) << host;
}

TEST_F(ServerList, HintsAtTheAddressIfNoServiceAnswers) {
  const std::tuple<const char*, int, const char*, bool> rows[] = {{"srv/", 0, "", true},
                                                                  {"srv/", 404, "<html>", true},
                                                                  {"srv/", 200, "{}", true},
                                                                  {"srv/", 500, "", false},
                                                                  {"srv/", 400, R"({"_error":"No"})", false},
                                                                  {"srv", 0, "", false}};
  for (const auto& [host, status, answer, hints] : rows) {
    platform.Messages.clear();
    Submit(host, "amy", "pässw0rd");
    SentRequest& sent = platform.LastRequest();
    status == 0 ? sent.Fail(toolkit::TransferFault::Refused) : sent.Reply(status, answer);
    ASSERT_THAT(platform.Messages, SizeIs(1));
    EXPECT_EQ(platform.Messages[0].ends_with("scheme or port."), hints) << host << " answered by " << status;
  }
}

TEST_F(ServerList, AsksTheTypedHostAndKeepsTheForm) {
  SentRequest& sent = Add();
  EXPECT_EQ(sent.Request.URL, "https://srv:1701/api/v1/system/information");
  EXPECT_EQ(parse(sent.Request.Body), parse(R"({"username":"amy","password":"pässw0rd"})"));
  EXPECT_TRUE(window->btnAddServer.Enabled() && window->Busy());
  ExpectNothingAdded();
  Submit("other", "ben", "other");
  EXPECT_EQ(Form(), "srv|amy|pässw0rd") << "another login would be stored than the one that was sent";
  window->txtUsername.Text(" שלום\t");
  window->txtPassword.Text("\0\"\\n"s);
  sent.Reply(200, reply);
  ASSERT_EQ(Servers.size(), 1U);
  const CorvaneServer& added = *Servers[0];
  EXPECT_EQ(added.Network_Hostname + added.Network_IPv4 + added.System_Name, " named 192.0.2.1" + systemName);
  EXPECT_EQ(added.Username + added.Password, " שלום\t\0\"\\n"s);
  EXPECT_EQ(Form(), "||");
  EXPECT_FALSE(window->Busy());
  EXPECT_EQ(platform.Requests.size() + platform.Messages.size(), 1U);
}

TEST_F(ServerList, AServerThatIsAddedTwiceHasTwoRows) {
  Add().Reply(200, reply);
  SentRequest& second = Add();
  auto body = parse(reply).get_object();  // values of the first reply are sent again
  body.insert({{"username", "amy"}, {"password", "pässw0rd"}});
  EXPECT_EQ(parse(second.Request.Body), body);
  second.Reply(200, R"({"networkHostname":"named","networkIPv4":8,"systemName":12.5})");
  EXPECT_EQ(window->listServers.RowText(0), systemName + "\t192.0.2.1\t named ");
  EXPECT_EQ(window->listServers.RowText(1), "12.5\t8\tnamed");
  window->listServers.Activate();
  window->listServers.Select(1);
  window->listServers.Activate();
  EXPECT_THAT(opened, ElementsAre(Servers.at(1)));
}

TEST_F(ServerList, AddsNothingThatIsNotAccepted) {
  const std::tuple<int, std::string, std::string> rows[] = {
      {400, R"({"_error":"Wrong <i>user</i>"})", "Wrong <i>user</i>"},
      {200, R"({"networkHostname":1,"networkIPv4":1.5,"systemName":{"0":"a"}})", "no usable “systemName”"},
      {0, "", "“srv” refused the connection on port 1701. Is the panel service running"},
  };
  for (const auto& [status, answer, message] : rows) {
    platform.Messages.clear();
    SentRequest& sent = Add();
    status == 0 ? sent.Fail(toolkit::TransferFault::Refused) : sent.Reply(status, answer);
    EXPECT_THAT(platform.Messages, ElementsAre(HasSubstr(message)));
    EXPECT_EQ(Form() + platform.LastDialog.About, "srv|amy|pässw0rdsrv");
    EXPECT_EQ(platform.Owners.back(), window.get());
    ExpectNothingAdded();
  }
  window->txtPassword.PressEnter();
  EXPECT_TRUE(platform.LastRequest().IsRunning()) << "the form was not given back";
  for (int time = 0; time < 2; ++time) window->Escape();
  EXPECT_FALSE(platform.LastRequest().IsRunning() || window->Busy());
}

TEST_F(ServerList, NothingReachesAWindowThatWasClosed) {
  for (int row = 0; row < 6; ++row) {
    SCOPED_TRACE(row);
    OpenWindow();
    SentRequest& sent = Add();
    window->Close();
    if (row % 2 == 0) window.reset();
    EXPECT_TRUE(sent.IsRunning());
    row < 2 ? sent.Fail(toolkit::TransferFault::ClosedEarly) : sent.Reply(row < 4 ? 200 : 400, reply);
    EXPECT_THAT(platform.Messages, IsEmpty());
    ExpectNothingAdded();
  }
  for (const int status : {200, 400}) {
    OpenWindow();
    SentRequest& sent = Add();
    platform.WhileMessageStands = [this] { std::exchange(window, nullptr)->Close(); };
    sent.Reply(status, R"({"_error":"second"})");
    EXPECT_EQ(window, nullptr) << "no message stood";
  }
}

TEST_F(ServerList, LooksForUpdatesOnceItHasBeenPainted) {
  for (const auto& [file, stage] : {std::pair("", 3), {"corvane_alpha.txt", 1}, {"corvane_beta.txt", 2}}) {
    if (*file != '\0') toolkit::ReplaceFile(platform.DesktopFolder().Child(file), "");
    OpenWindow();
    EXPECT_EQ(window->pKaju, nullptr);
    platform.Requests.clear();
    for (int painted = 0; painted < 2; ++painted) window->TellPainted();
    ASSERT_EQ(platform.Requests.size(), 1U);
    EXPECT_EQ(platform.LastRequest().Request.URL, product::updateURL);
    EXPECT_EQ(window->pKaju->AllowedStage, stage);
    EXPECT_EQ(window->pKaju->AllowedInteraction, 128U);
  }
  platform.WhileWaiting = [&] {  // the window is closed while the check waits
    std::exchange(window, nullptr)->Close();
    platform.LastRequest().Reply(404, "");
  };
  OpenWindow();
  window->TellPainted();
}

TEST_F(ServerList, SetsPreferencesAsideThatAreUnusable) {
  const auto file = app.KajuPrefFolder().Child("Kaju_Preferences");
  for (const std::string suffix : {"", "2"}) {
    const std::string bad = R"({"IgnoreVersionsPref":[[]]})" + suffix;
    toolkit::ReplaceFile(file, bad);
    for (const std::size_t messages : {1U, 0U}) {
      OpenWindow();
      platform.Requests.clear();
      platform.Dispatch([&] { window->TellPainted(); });
      EXPECT_EQ(std::exchange(platform.Messages, {}).size(), messages);
      EXPECT_EQ(platform.Requests.size(), 1U);
      window = nullptr;  // the checker writes its preferences
      platform.CloseWindows();
      EXPECT_EQ(toolkit::ReadFile(file), R"({"IgnoreVersionsPref":[]})");
    }
    EXPECT_EQ(toolkit::ReadFile(file.Parent().Child("Kaju_Preferences_unreadable" + suffix)), bad);
  }
}
