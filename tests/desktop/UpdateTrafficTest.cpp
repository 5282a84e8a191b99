// The sockets of the update check against a real web server with the faults of real ones.

#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/ReleaseNotes.h"

using namespace test_servers;
using namespace testing;
using namespace std::literals;

namespace {

using UpdateTraffic = Desktop;

std::string Moved(const std::string& where, int status = 302) {
  return Reply(status, "", "Location: " + where + "\r\n");
}

}  // namespace

TEST_F(UpdateTraffic, TrustsOnlyAKnownCertificate) {
  for (const bool isTrusted : {false, true}) {
    if (isTrusted) toolkit::Platform::Current().TrustAuthority(FaultServer::Certificate());
    const FaultServer secure({{{Reply(200, "secret")}}});
    const FaultServer plain({{{Moved(secure.URL() + "/x")}}}, Wire::Plain);
    Kaju::HTTPSSocket socket;
    EXPECT_EQ(socket.GetRedirectAddress(plain.URL(), 5, 1), secure.URL() + "/x");
    EXPECT_EQ(socket.Get(secure.URL() + "/x", 5), isTrusted ? "secret" : "");
    EXPECT_EQ(socket.LastErrorCode() == 0, isTrusted);
    socket.ForceSecure = true;
    EXPECT_EQ(socket.Get("http" + secure.URL().substr(5), 5), isTrusted ? "secret" : "");
    EXPECT_EQ(socket.Get(plain.URL(), 5), "");
  }
}

TEST_F(UpdateTraffic, TellsBodyStatusAndErrorOfAll) {
  const std::string ten = "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n";
  const std::string endless = "HTTP/1.1 200 OK\r\n\r\n" + std::string(2000, 'x');
  const std::string huge = "HTTP/1.1 200 OK\r\nContent-Length: 99999999\r\n\r\nx";
  enum Trouble { None, Failure, TimeOut, TooLarge };
  using enum Answer::Then;
  const std::tuple<const char*, Answer, std::string, int, Trouble> rows[] = {
      // clang-format off
      {"missing",             {{Reply(404, "no")}},          "no",   404, None},
      {"moved",               {{Moved("/x")}},               "",     302, None},
      {"slow",                {{ten, "01", "23", "45", "67", "89"}, Close, {}, 400ms}, "0123456789", 200, None},
      {"stalls",              {{ten, "0", "1"}, Close, {}, 1500ms}, "", 200, TimeOut},
      {"short",               {{ten + "123"}, Close},        "",     200, Failure},
      {"hangs up",            {{}, Close},                   "",     0,   Failure},
      {"never speaks",        {{}},                          "",     0,   TimeOut},
      {"too large",           {{huge}},                      "",     0,   TooLarge},
      {"larger than it says", {{endless}, Close},            "",     200, TooLarge},
      // clang-format on
  };
  for (const auto& [what, answer, body, status, trouble] : rows) {
    SCOPED_TRACE(what);
    const Greeting greeting = what == "never speaks"s ? Greeting::Silence : Greeting::Serve;
    const FaultServer server({answer}, Wire::Plain, greeting);
    Kaju::HTTPSSocket socket;
    socket.LargestBody = 1000;
    EXPECT_EQ(socket.Get(server.URL() + "/doc", 1), body);
    EXPECT_EQ(socket.HTTPStatusCode(), status);
    EXPECT_EQ(socket.LastErrorCode() == -1, trouble == TimeOut);
    EXPECT_EQ(socket.LastErrorCode() != 0, trouble != None);
    EXPECT_EQ(socket.WasTooLarge(), trouble == TooLarge);
  }
}

TEST_F(UpdateTraffic, AnswersAChallengeOnce) {
  const Answer asks{{Reply(401, "who?", "WWW-Authenticate: Basic realm=\"r\"\r\n")}};
  const Answer gives{{Reply(200, "yours")}};
  const Answer asksInTwoLines{
      {Reply(401, "who?", "WWW-Authenticate: Digest realm=\"d\"\r\nwww-authenticate: Basic realm=\"r\"\r\n")}};
  const Answer refuses{{Reply(401, "no", "WWW-Authenticate: Digest realm=\"r\"\r\n")}};
  const std::tuple<std::string, std::vector<Answer>, std::string, std::vector<std::string>> rows[] = {
      // clang-format off
      {"a%40b:p%3aw@", {asks, gives}, "yours", {"", "Basic YUBiOnA6dw=="}},
      {"a:b@",         {asksInTwoLines, gives}, "yours", {"", "Basic YTpi"}},
      {"a:@",          {asks, gives}, "yours", {"", "Basic YTo="}},
      {"a:wrong@",     {asks},        "who?",  {"", "Basic YTp3cm9uZw=="}},
      {"",             {asks},        "who?",  {""}},
      {":p@",          {asks},        "who?",  {""}},
      {"a:p@",         {refuses},     "no",    {""}},
      // clang-format on
  };
  for (const auto& [user, script, body, expected] : rows) {
    SCOPED_TRACE(user);
    const FaultServer server(script, Wire::Plain);
    EXPECT_EQ(Kaju::HTTPSSocket().Get("http://" + user + server.URL().substr(7) + "/x", 5), body);
    std::vector<std::string> sent;
    for (const std::string& request : server.Requests()) {
      EXPECT_THAT(request, StartsWith("GET /x HTTP/1.1\r\nHost: 127.0.0.1:"));
      const QString rest = QString::fromStdString(request).section("Authorization: ", 1);
      sent.push_back(rest.section("\r\n", 0, 0).toStdString());
    }
    EXPECT_EQ(sent, expected);
  }
}

TEST_F(UpdateTraffic, FetchesNotesInTheirEncoding) {
  const std::string none = "<b>NO UPDATE INFORMATION</b>";
  const std::tuple<std::string, std::string, std::string> rows[] = {
      // "$" stands for the page's address
      {"", "", none},
      {"text\n$\n", "unasked", ""},
      {"$\nfallback", Reply(200, "<p>page</p>"), "<p>page</p>"},
      {"<!-- $ -->\n fallback \n", Reply(200, "page"), "page"},
      {"$\n fall\nback \n", Reply(404, "page"), "fall\nback"},
      {"<!--$-->fallback", Reply(200, " \r\n"), "fallback"},
      {"$\n", Reply(200, ""), none},
      {"$\n", Reply(500, "page"), "page"},
      {"$\n", Reply(200, "<META CHARSET = 'iso-8859-1'>caf\xE9"), "<META CHARSET = 'iso-8859-1'>café"},
      {"$\n", Reply(200, "<meta charset=\"Shift_JIS\">\x83\x65"), "<meta charset=\"Shift_JIS\">テ"},
      {"$\n", Reply(200, "<meta charset=\" windows-1251 \">\xDF"), "<meta charset=\" windows-1251 \">Я"},
      {"$\n", Reply(200, "<meta charset=\"unknown\">é\xE9!"), "<meta charset=\"unknown\">é\uFFFD!"},
      {"$\n", Reply(200, "é\xFF\xC3"), "é\uFFFD\uFFFD"},
  };
  for (const auto& [written, page, shown] : rows) {
    SCOPED_TRACE(written + page);
    const FaultServer server({{{Reply(200, "")}}, {{page}}}, Wire::Plain);
    const std::string notes =
        QString::fromStdString(written).replace("$", (server.URL() + "/notes").c_str()).toStdString();
    EXPECT_EQ(Kaju::ProcessReleaseNotes(notes), shown.empty() ? notes : shown);
    EXPECT_EQ(server.Requests().size(), notes == written || page == "unasked" ? 0U : 2U);
  }
}
