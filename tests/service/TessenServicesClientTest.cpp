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

struct Client : testing::Test {
  Client() {
    client->ButtonPressed = [this] { events.emplace_back("pressed"); };
    client->Error = [this](const auto& error) { events.push_back("error: " + error.Message()); };
  }

  /// Presses a button and returns the body that was sent.
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

TEST_F(Client, TellsEachOutcomeAndKeepsTheAccepted) {
  const std::string unread = "error: The server's reply cannot be read: the ";
  const std::string noJSON = unread + "text is not JSON (";  // and what the parser says
  const std::tuple<const char*, int, std::string, std::string> rows[] = {
      {"as deep as can be", 200, R"({"a":)" + std::string(63, '[') + std::string(63, ']') + "}", "pressed"},
      {"only 400 refuses", 401, R"({"new":1,"_error":"no"})", "pressed"},
      {"no data", 200, "", "error: No data was returned from the Tessen Service."},
      {"refused", 400, R"({"_error":"No <b>such</b>\n\u0000😀","new":1})", "error: No <b>such</b>\n\0😀"s},
      {"no reason", 400, R"({"error":"x"})", "error: The server refused the request and gave no reason."},
      {"not UTF-8", 200, "{\"new\":\"caf\xE9\"}", unread + "text is not UTF-8."},
      {"half a surrogate", 200, R"({"new":"\ud800"})", noJSON},
      {"too deep", 400, R"({"_error":)" + std::string(64, '[') + std::string(64, ']') + "}",
       unread + "JSON is nested too deep."},
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

TEST_F(Client, RefusesEmptyTextsAndPassesOnFailures) {
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

TEST_F(Client, ValuesSurviveTheRoundTripExactly) {
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
  Press();
  Last().Reply(200, R"({"number":91.66666666666667})");
  EXPECT_EQ(client->Operator_Lookup("number").Text(), "91.66666666666667");
}

TEST_F(Client, ItsHandlersMayPressAgainOrDestroyIt) {
  for (int row = 0; row < 4; ++row) {
    SCOPED_TRACE(row);
    const bool destroys = row % 2 == 1;
    int calls = 0;
    const auto react = [&] { ++calls, destroys ? client.reset() : client->PressButton(url, "again"); };
    client = std::make_unique<TessenServicesClient>();
    client->ButtonPressed = react;
    client->Error = [&](const auto&) { react(); };
    Press();
    const std::size_t requests = platform.Requests.size();
    Last().Reply(row < 2 ? 200 : 400, R"({"_error":"x"})");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(platform.Requests.size(), destroys ? requests : requests + 1);
    EXPECT_EQ(Last().IsRunning(), !destroys);
  }
}

TEST(ServiceTable, IsReadByNumbersWholeOrNotAtAll) {
  const std::tuple<const char*, bool, std::vector<std::string>, std::string> tables[] = {
      {R"({"0":[null]})", true, {}, ""},
      {R"({"1":["c","d"],"0":["a","b"]})", false, {"a\tb", "c\td"}, ""},
      {R"({"2":["c"],"1":["a"],"0":[1,2,"beyond"]})", true, {"a\t", "c\t"}, ""},
      {R"({"0":[1.50,true],"1":[null,{"k":1}]})", false, {"1.5\ttrue", "\t{\"k\":1}"}, ""},
      {"{}", true, {}, "it has no row 0"},
      {R"({"0":["a"],"01":["b"]})", false, {}, "it has no row 1"},
      {R"({"0":["a"],"1":{"0":"b"}})", false, {}, "its row 1 is no row"},
  };
  for (const auto& [text, hasHeadings, expected, complaint] : tables) {
    SCOPED_TRACE(text);
    toolkit::Listbox list;
    list.ColumnCount(2);
    std::string fault;
    try {
      TessenServicesClient::TessenListBox_FillDesktopListBox(list, parse(text).as_object(), hasHeadings);
    } catch (const toolkit::RuntimeException& exception) {
      fault = exception.Message();
    }
    EXPECT_EQ(fault, complaint.empty() ? "" : "The server's table cannot be shown: " + complaint + ".");
    std::vector<std::string> rows;
    for (int row = 0; row < list.ListCount(); ++row) rows.push_back(list.RowText(row));
    EXPECT_EQ(rows, expected);
  }
}
