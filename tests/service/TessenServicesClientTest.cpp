#include <limits>

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>

#include "service/TessenServicesClient.h"
#include "tests/support/HandPlatform.h"

using namespace std::string_literals;
using testing::ElementsAre;

namespace {

boost::json::value parse(std::string_view text) { return boost::json::parse(text, {}, {.max_depth = 64}); }

constexpr const char* url = "https://Srv:1701/Api/v1/System";

struct ClientTest : testing::Test {
  ClientTest() {
    client->ButtonPressed = [this] { events.emplace_back("pressed"); };
    client->Error = [this](const auto& error) { events.push_back("error: " + error.Message()); };
  }

  /// Presses a button and gives what was sent for it.
  boost::json::value Press() {
    client->PressButton(url, "List");
    return parse(Last().Request.Body);
  }
  SentRequest& Last() const { return platform.LastRequest(); }

  HandPlatform platform;
  std::vector<std::string> events;
  std::unique_ptr<TessenServicesClient> client = std::make_unique<TessenServicesClient>();
};

}  // namespace

TEST_F(ClientTest, TheStoreLivesFromRequestToRequest) {
  client->Operator_Lookup("username", "amy");
  client->Operator_Lookup("password", "old");
  client->Operator_Lookup("password", "new");
  EXPECT_EQ(Press(), parse(R"({"username":"amy","password":"new"})"));
  EXPECT_EQ(Press(), parse(R"({"username":"amy","password":"new"})")) << "cleared by sending";
  Last().Reply(200, R"({"status":"fine","rows":{"0":["a",1]},"none":null})");
  EXPECT_TRUE(client->Operator_Lookup("password").IsNil()) << "not part of the reply";
  client->Operator_Lookup("status", "assigned");
  client->Operator_Lookup("username", "ben");
  EXPECT_EQ(Press(), parse(R"({"status":"assigned","rows":{"0":["a",1]},"none":null,"username":"ben"})"));
  Last().Reply(200, "{}");
  EXPECT_EQ(Press(), parse("{}"));
}

TEST_F(ClientTest, EachOutcomeRaisesOneEventAndOnlyAnAcceptedReplyTouchesTheStore) {
  const std::string unread = "error: The server's reply cannot be read: the ";
  const std::string noJSON = unread + "text is not JSON (";  // and what the parser says
  const std::string noReason = "error: The server refused the request and gave no reason.";
  const std::tuple<const char*, int, std::string, std::string> rows[] = {
      {"accepted", 200, R"({"new":1,"other":2,"new":3})", "pressed"},
      {"as deep as can be", 200, R"({"a":)" + std::string(63, '[') + std::string(63, ']') + "}", "pressed"},
      {"only 400 refuses: 401", 401, R"({"new":1,"_error":"no"})", "pressed"},
      {"no data", 200, "", "error: No data was returned from the Tessen Service."},
      {"refused", 400, R"({"_error":"No <b>such</b>\n\u0000😀","new":1})", "error: No <b>such</b>\n\0😀"s},
      {"refused without a reason", 400, R"({"error":"x"})", noReason},
      {"a number beyond all bounds", 200, R"({"new":1e400})", noJSON},
      {"refused with an object", 400, R"({"_error":{"code":7}})", R"(error: {"code":7})"},
      {"not UTF-8", 200, "{\"new\":\"caf\xE9\"}", unread + "text is not UTF-8."},
      {"not JSON", 200, "<html>new</html>", noJSON},
      {"cut off", 200, R"({"new":1)", noJSON},
      {"half a surrogate", 200, R"({"new":"\ud800"})", noJSON},
      {"too deep", 400, R"({"_error":)" + std::string(64, '[') + std::string(64, ']') + "}",
       unread + "JSON is nested too deep."},
      {"an array", 200, R"([{"new":1}])", unread + "JSON is not an object."},
  };
  for (const auto& [name, status, body, event] : rows) {
    SCOPED_TRACE(name);
    client->Operator_Lookup("kept", "as sent");
    const auto sent = Press();
    const std::size_t requests = platform.Requests.size();
    events.clear();
    Last().Reply(status, body);
    EXPECT_THAT(events, ElementsAre(testing::StartsWith(event)));
    EXPECT_TRUE(event == noJSON || events == std::vector{event});
    EXPECT_EQ(platform.Requests.size(), requests) << "sent again";
    EXPECT_EQ(Press(), event == "pressed" ? parse(body) : sent);
    Last().Reply(200, "{}");
  }
}

TEST_F(ClientTest, RefusesEmptyTextsAtOnceAndPassesOnFailuresOfTheTransfer) {
  client->PressButton("", "");
  EXPECT_THAT(platform.Requests, ElementsAre());
  client->Operator_Lookup("kept", "as it was");
  const auto sent = Press();
  client->PressButton(url, "");
  EXPECT_TRUE(Last().IsRunning()) << "a refused press ended the request under way";
  Last().BeginReply(200);
  Last().ReplyPart(R"({"kept":"half)");
  Last().Fail(toolkit::TransferFault::ClosedEarly);
  EXPECT_EQ(platform.Requests.size(), 1U);
  EXPECT_THAT(events,
              ElementsAre("error: No Tessen Service URL was provided.", "error: No button name was provided.",
                          "error: The connection to the server “Srv” was closed before its reply was complete."));
  EXPECT_EQ(Press(), sent);
}

TEST_F(ClientTest, ValuesSurviveTheRoundTripExactly) {
  client->Operator_Lookup("date", toolkit::Date(std::chrono::seconds(951827696)));
  client->Operator_Lookup("double", 0.1);
  client->Operator_Lookup("least", std::numeric_limits<std::int64_t>::min());
  client->Operator_Lookup("text", "\0\"\\\n😀 שלום"s);
  client->Operator_Lookup("unsigned", std::numeric_limits<std::uint64_t>::max());
  const std::string all = R"({"date":"2000-02-29T12:34:56Z","double":0.1,"least":-9223372036854775808,
      "text":"\u0000\"\\\n😀 שלום","unsigned":18446744073709551615})";
  EXPECT_EQ(Press(), parse(all));
  const std::string reply = R"({"nested":{"list":[null,false,1e300,{"":)" + all + R"(}]},"nil":null})";
  Last().Reply(200, reply);
  EXPECT_EQ(Press(), parse(reply));
  // clang-format off
  const std::pair<std::string, const char*> numbers[] = {
      {"91.66666666666667", "91.66666666666667"}, {"12.50", "12.5"}, {"8.0", "8"}, {"1E5", "100000"}, {"1e-400", "0"},
      {"5e-324", "5e-324"}, {"1.7976931348623157E+308", "1.7976931348623157e+308"},
      {"18446744073709551616", "18446744073709551616"}};
  // clang-format on
  for (const auto& [written, shown] : numbers) {
    Press();
    Last().Reply(200, R"({"number":)" + written + "}");
    EXPECT_EQ(client->Operator_Lookup("number").Text(), shown);
  }
}

TEST_F(ClientTest, ItsHandlersMayPressAgainOrDestroyTheClient) {
  for (const int status : {200, 400}) {
    for (const bool destroys : {false, true}) {
      SCOPED_TRACE(std::to_string(status) + (destroys ? " destroys" : " presses"));
      int calls = 0;
      const auto react = [&] { ++calls, destroys ? client.reset() : client->PressButton(url, "again"); };
      client = std::make_unique<TessenServicesClient>();
      client->ButtonPressed = react;
      client->Error = [&](const auto&) { react(); };
      Press();
      const std::size_t requests = platform.Requests.size();
      Last().Reply(status, R"({"_error":"x"})");
      EXPECT_EQ(calls, 1);
      EXPECT_EQ(platform.Requests.size(), destroys ? requests : requests + 1);
      EXPECT_EQ(Last().IsRunning(), !destroys);
    }
  }
}
