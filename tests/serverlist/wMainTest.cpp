#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>

#include "serverlist/CorvaneClient.h"
#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/Product.h"
#include "tests/support/HandPlatform.h"

using namespace std::string_literals;
using boost::json::parse;
using CorvaneClient::Servers;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Record = std::shared_ptr<CorvaneServer>;

constexpr const char* reply = R"({"networkHostname":"named","networkIPv4":"192.0.2.1","systemName":"Box","load":8})";

std::vector<std::string> FieldsOf(const CorvaneServer& server) {
  return {server.Network_Hostname, server.Network_IPv4, server.Password, server.System_Name, server.Username};
}

std::string Joined(char separator, const std::string& first, std::string_view second, std::string_view third) {
  return std::string(first).append(1, separator).append(second).append(1, separator).append(third);
}

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() { OpenWindow(); }
  void TearDown() override {
    Servers.clear();
    for (const auto& message : platform.Messages) EXPECT_THAT(message, testing::Not(HasSubstr("pässw0rd")));
  }

  void OpenWindow() {
    window = std::make_shared<wMain>([this](const Record& server) { opened.push_back(server); });
    window->Show();
  }
  void Fill(const std::string& host, const std::string& user, const std::string& password) const {
    window->txtHostname.Type(host);
    window->txtUsername.Type(user);
    window->txtPassword.Type(password);
  }
  SentRequest& Add(const std::string& host = "srv") {
    Fill(host, "amy", "pässw0rd");
    window->btnAddServer.Press();
    return platform.LastRequest();
  }
  [[nodiscard]] std::string Form() const {
    return Joined('|', window->txtHostname.Text(), window->txtUsername.Text(), window->txtPassword.Text());
  }
  void ExpectNothingAdded() const {
    EXPECT_THAT(Servers, ElementsAre());
    EXPECT_EQ(window ? window->listServers.ListCount() : 0, 0);
  }

  HandPlatform platform;
  App app{{1, 0, 12}};
  std::vector<Record> opened;
  std::shared_ptr<wMain> window;
};

}  // namespace

TEST_F(MainWindowTest, KeepsEveryControlInItsPlaceWhileItGrowsAndShrinks) {
  const struct {
    const char* name;
    int left, width, height, tops[3];
  } rows[] = {
      {"Canvas1", 0, 600, 164, {0, 0, 0}},
      {"listServers", 0, 600, 200, {162, 162, 162}},
      {"txtHostname", 20, 560, 22, {374, -76, 760}},
      {"txtUsername", 20, 200, 22, {408, -42, 794}},
      {"txtPassword", 232, 200, 22, {408, -42, 794}},
      {"btnAddServer", 444, 136, 20, {408, -42, 794}},
      {"labelVersion", 20, 560, 20, {442, -8, 828}},
      {"labelCopyright", 20, 560, 20, {474, 24, 860}},
  };
  ASSERT_EQ(window->Controls().size(), std::size(rows));
  for (std::size_t size = 0; size < 3; ++size) {
    window->Resize({size == 0 ? 600 : 700, std::array{514, 1, 900}[size]});  // kept to 600 points, and at least 64
    for (std::size_t index = 0; const auto& row : rows) {
      SCOPED_TRACE(row.name + " at height "s + std::to_string(window->ContentSize().Height));
      const toolkit::Control& control = *window->Controls()[index];
      EXPECT_EQ(control.Name(), row.name);
      EXPECT_EQ(control.TabOrder(), static_cast<int>(index++));
      EXPECT_EQ(window->PlaceOf(control), (toolkit::Rect{row.left, row.tops[size], row.width, row.height}));
    }
  }
}

TEST_F(MainWindowTest, OpensWithItsTextsAndAsksNobody) {
  EXPECT_EQ(window->labelVersion.Text(), "Version 1.0.12");
  EXPECT_EQ(window->labelCopyright.Text(), product::copyright);
  for (int column = 0; const char* heading : {"Server Name:", "IP Address:", "Hostname:"}) {
    EXPECT_EQ(window->listServers.Heading(column++), heading);
  }
  EXPECT_EQ(Form(), "||");
  EXPECT_THAT(platform.Requests, ElementsAre());
}

TEST_F(MainWindowTest, ChecksTheHostnameFirstAndSendsNothingThatIsIncomplete) {
  for (const std::string host : {"", "srv"}) {
    for (const std::string user : {"", "amy"}) {
      for (const std::string password : {"", "pässw0rd"}) {
        Fill(host, user, password);
        SCOPED_TRACE(Form());
        platform.Messages = {""};
        window->btnAddServer.Press();
        const bool complete = !host.empty() && !user.empty() && !password.empty();
        EXPECT_EQ(platform.Requests.size(), complete ? 1U : 0U);
        EXPECT_EQ(platform.Messages.size(), complete ? 1U : 2U);
        EXPECT_EQ(platform.Messages.back(), complete ? ""
                                            : host.empty()
                                                ? "You must provide your server hostname to continue."
                                                : "You must provide both your username and password to continue.");
        EXPECT_EQ(Form(), Joined('|', host, user, password));
      }
    }
  }
}

TEST_F(MainWindowTest, AsksTheTypedHostAndTakesTheCredentialsOfTheMomentOfTheReply) {
  EXPECT_EQ(Add("https://srv:1701").Request.URL, "https://srv:1701/api/v1/system/information");
  SentRequest& sent = Add();
  EXPECT_EQ(sent.Request.URL, "https://srv:1701/api/v1/system/information");
  EXPECT_EQ(parse(sent.Request.Body), parse(R"({"username":"amy","password":"pässw0rd"})"));
  EXPECT_TRUE(window->btnAddServer.Enabled());
  EXPECT_EQ(Form(), "srv|amy|pässw0rd");
  ExpectNothingAdded();

  Fill("edited", "ben", "changed");
  sent.Reply(200, reply);
  ASSERT_EQ(Servers.size(), 1U);
  EXPECT_THAT(FieldsOf(*Servers[0]), ElementsAre("named", "192.0.2.1", "changed", "Box", "ben"));
  EXPECT_EQ(window->listServers.RowText(0), "Box\t192.0.2.1\tnamed");
  EXPECT_EQ(Form(), "||");
  EXPECT_EQ(platform.Requests.size(), 2U);
  EXPECT_THAT(platform.Messages, ElementsAre());
}

TEST_F(MainWindowTest, TwoAdditionsOfOneServerAreTwoRowsWithTwoRecords) {
  Add().Reply(200, reply);
  SentRequest& second = Add();
  auto body = parse(reply).get_object();  // what the first reply left travels along
  body["username"] = "amy";
  body["password"] = "pässw0rd";
  EXPECT_EQ(parse(second.Request.Body), body);
  Fill("srv", "ben", "other");
  second.Reply(200, R"({"networkHostname":"named","networkIPv4":8,"systemName":12.5})");
  ASSERT_EQ(Servers.size(), 2U);
  EXPECT_EQ(Servers[0]->Username, "amy");
  EXPECT_EQ(Servers[1]->Username, "ben");
  EXPECT_EQ(window->listServers.ListCount(), 2);
  EXPECT_EQ(window->listServers.RowText(0), "Box\t192.0.2.1\tnamed");
  EXPECT_EQ(window->listServers.RowText(1), "12.5\t8\tnamed");
  for (const int row : {-1, 1, 0}) {
    window->listServers.Select(row);
    window->listServers.Activate();
  }
  EXPECT_THAT(opened, ElementsAre(Servers[1], Servers[0]));
}

TEST_F(MainWindowTest, AReplyWithoutAUsableKeyAddsNothingAndNamesTheKey) {
  for (const std::string key : {"networkHostname", "networkIPv4", "systemName"}) {
    for (const char* value : {"", "null", "true", R"({"0":"a"})", R"(["a"])"}) {
      SCOPED_TRACE(testing::Message() << key << ": " << value);
      platform.Messages.clear();
      auto members = parse(reply).get_object();
      members.erase(key);
      if (*value != '\0') members[key] = parse(value);
      Add().Reply(200, boost::json::serialize(members));
      EXPECT_THAT(platform.Messages, ElementsAre(HasSubstr("“" + key + "”")));
      EXPECT_EQ(Form(), "srv|amy|pässw0rd");
      ExpectNothingAdded();
    }
  }
}

TEST_F(MainWindowTest, AFailureShowsItsMessageAndLeavesTheForm) {
  Add().Reply(400, R"({"_error":"Wrong <i>user</i>"})");
  Add().Reply(500, "");
  Add().Fail(toolkit::TransferFault::Refused);
  EXPECT_THAT(platform.Messages, ElementsAre("Wrong <i>user</i>", "No data was returned from the Tessen Service.",
                                             HasSubstr("“srv” refused the connection on port 1701")));
  EXPECT_EQ(Form(), "srv|amy|pässw0rd");
  ExpectNothingAdded();
}

TEST_F(MainWindowTest, NothingReachesAWindowThatWasClosed) {
  for (const bool destroyed : {false, true}) {
    for (const char* answer : {reply, "{}", R"({"_error":"no"})", ""}) {
      SCOPED_TRACE(answer + (destroyed ? " after the end"s : " after closing"s));
      OpenWindow();
      SentRequest& sent = Add();
      window->Close();
      if (destroyed) window.reset();
      *answer == '\0' ? sent.Fail(toolkit::TransferFault::ClosedEarly)
                      : sent.Reply(answer[2] == '_' ? 400 : 200, answer);
      EXPECT_EQ(sent.IsAbandoned(), destroyed);
      EXPECT_THAT(platform.Messages, ElementsAre());
      ExpectNothingAdded();
    }
  }
}

TEST_F(MainWindowTest, AMessageMayStandWhileAnotherReplyArrivesOrTheWindowIsClosed) {
  platform.WhileMessageStands = [this] { Add("other").Reply(200, reply); };
  Add().Reply(400, R"({"_error":"first"})");
  EXPECT_EQ(Servers.size(), 1U);
  EXPECT_EQ(Form(), "||");

  const auto closeAndDestroy = [this] { std::exchange(window, nullptr)->Close(); };
  for (const std::function<void()>& raise : std::initializer_list<std::function<void()>>{
           [this] { Add().Reply(400, R"({"_error":"second"})"); },
           [this] { Add().Reply(200, R"({"systemName":"x"})"); }, [this] { Add().Reply(200, "no JSON"); },
           [this] { window->btnAddServer.Press(); }}) {
    OpenWindow();
    platform.WhileMessageStands = closeAndDestroy;
    raise();
    EXPECT_EQ(window, nullptr) << "no message stood";
  }
  EXPECT_EQ(Servers.size(), 1U);
  EXPECT_EQ(platform.Messages.size(), 5U);
}

TEST_F(MainWindowTest, UnusualTextReachesServerRecordAndRowUnchanged) {
  const std::string texts[] = {" ",
                               "  blanks around  ",
                               "😀👩‍🚀",
                               "\u05E9\u05DC\u05D5\u05DD \u0639\u0627",
                               std::string(10'000, 'x'),
                               "<b>bold</b><img src=x>&amp;",
                               "NUL\0 tab\t line\r\nbreak"s,
                               "\"quotes\" \\ {\"a\":1}"};
  for (const auto& text : texts) {
    SCOPED_TRACE(text.substr(0, 40));
    Fill(text, text, text);
    window->btnAddServer.Press();
    SentRequest& sent = platform.LastRequest();
    EXPECT_EQ(sent.Request.URL, "https://" + text + ":1701/api/v1/system/information");
    EXPECT_EQ(parse(sent.Request.Body).at("username").as_string(), text);
    EXPECT_EQ(parse(sent.Request.Body).at("password").as_string(), text);
    sent.Reply(200, boost::json::serialize(
                        boost::json::object{{"networkHostname", text}, {"networkIPv4", text}, {"systemName", text}}));
    ASSERT_FALSE(Servers.empty());
    EXPECT_THAT(FieldsOf(*Servers.back()), testing::Each(text));
    EXPECT_EQ(window->listServers.RowText(window->listServers.ListCount() - 1), Joined('\t', text, text, text));
  }
  EXPECT_EQ(Servers.size(), std::size(texts));
  EXPECT_THAT(platform.Messages, ElementsAre());
}
