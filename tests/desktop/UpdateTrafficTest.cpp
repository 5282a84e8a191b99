// The sockets of the update check against a web server that does what servers do.

#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/ReleaseNotes.h"

using namespace test_servers;
using namespace testing;

namespace {

constexpr auto closes = Answer::Then::Close;
constexpr auto resets = Answer::Then::Reset;

class UpdateTraffic : public Desktop {};

std::string Moved(const std::string& where, int status = 302) {
  return Reply(status, "", "Location: " + where + "\r\n");
}

}  // namespace

TEST_F(UpdateTraffic, FollowsRedirectsByTheirHeadersAlone) {
  const struct {
    const char* what;
    std::vector<Answer> script;
    std::string leadsTo;  // "$" stands for the server's own address
    std::size_t requests;
  } rows[] = {
      {"none", {{{Reply(200, "")}}}, "$/start", 1},
      {"one", {{{Moved("$/b")}}, {{Reply(200, "")}}}, "$/b", 2},
      {"any status", {{{Moved("$/b", 200)}}, {{Moved("$/c", 404)}}, {{Reply(500, "")}}}, "$/c", 3},
      {"relative", {{{Moved("/b")}}}, "/b", 1},
      {"loop", {{{Moved("$/start")}}}, "$/start", 5},
      {"six in a chain",
       {{{Moved("$/1")}}, {{Moved("$/2")}}, {{Moved("$/3")}}, {{Moved("$/4")}}, {{Moved("$/5")}}},
       "$/5",
       5},
      {"nowhere", {{{Moved("")}}}, "$/start", 1},
  };
  for (const auto& row : rows) {
    const FaultServer server(row.script, Wire::Plain);
    const std::string found = Kaju::HTTPSSocket().GetRedirectAddress(server.URL() + "/start", 5, 5);
    EXPECT_EQ(found, row.leadsTo.starts_with('$') ? server.URL() + row.leadsTo.substr(1) : row.leadsTo) << row.what;
    EXPECT_EQ(server.Requests().size(), row.requests) << row.what;
    EXPECT_THAT(server.Requests(), Each(StartsWith("HEAD /"))) << row.what;
  }
  EXPECT_EQ(Kaju::HTTPSSocket().GetRedirectAddress("", 5, 5), "");
}

TEST_F(UpdateTraffic, GoesFromPlainToSecureOnlyWithACertificateThatIsTrusted) {
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

TEST_F(UpdateTraffic, TellsEveryOutcomeByBodyStatusAndError) {
  const std::string ten = "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n";
  const struct {
    const char* what;
    Answer answer;
    std::string body;
    int status;
    bool timesOut = false;
    Greeting greeting = Greeting::Serve;
  } rows[] = {
      {"document", {{Reply(200, "KAJU")}}, "KAJU", 200},
      {"missing", {{Reply(404, "no")}}, "no", 404},
      {"broken", {{Reply(500, "oh")}}, "oh", 500},
      {"empty", {{Reply(200, "")}}, "", 200},
      {"moved", {{Moved("/x")}}, "", 302},
      {"slow", {{ten, "01", "23", "45", "67", "89"}, closes, {}, std::chrono::milliseconds(400)}, "0123456789", 200},
      {"stalls", {{ten, "0", "1"}, closes, {}, std::chrono::milliseconds(1500)}, "", 200, true},
      {"short", {{ten + "123"}, closes}, "", 200},
      {"reset", {{ten + "123"}, resets}, "", 200},
      {"hangs up", {{}, closes}, "", 0},
      {"never answers", {{}}, "", 0, true},
      {"never speaks", {{}}, "", 0, true, Greeting::Silence},
      {"too large", {{"HTTP/1.1 200 OK\r\nContent-Length: 99999999\r\n\r\nx"}}, "", 0},
      {"larger than it says", {{"HTTP/1.1 200 OK\r\n\r\n" + std::string(2000, 'x')}, closes}, "", 200},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const FaultServer server({row.answer}, Wire::Plain, row.greeting);
    Kaju::HTTPSSocket socket;
    socket.LargestBody = 1000;
    EXPECT_EQ(socket.Get(server.URL() + "/doc", 1), row.body);
    EXPECT_EQ(socket.HTTPStatusCode(), row.status);
    EXPECT_EQ(socket.LastErrorCode() == -1, row.timesOut);
    EXPECT_EQ(socket.LastErrorCode() != 0, row.body.empty() && std::string(row.what) != "empty" && row.status != 302);
    EXPECT_EQ(socket.WasTooLarge(), std::string(row.what).find("large") != std::string::npos);
  }
}

TEST_F(UpdateTraffic, AnswersAChallengeOnceWithTheNamesInTheAddress) {
  const Answer asks{{Reply(401, "who?", "WWW-Authenticate: Basic realm=\"r\"\r\n")}};
  const Answer gives{{Reply(200, "yours")}};
  const struct {
    const char* user;
    std::vector<Answer> script;
    std::string body;
    std::vector<std::string> sent;
  } rows[] = {
      {"a%40b:p%3aw@", {asks, gives}, "yours", {"", "Basic YUBiOnA6dw=="}},
      {"a:@", {asks, gives}, "yours", {"", "Basic YTo="}},
      {"a:wrong@", {asks}, "who?", {"", "Basic YTp3cm9uZw=="}},
      {"", {asks}, "who?", {""}},
      {":p@", {asks}, "who?", {""}},
      {"a:p@", {{{Reply(401, "no", "WWW-Authenticate: Digest realm=\"r\"\r\n")}}}, "no", {""}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.user);
    const FaultServer server(row.script, Wire::Plain);
    EXPECT_EQ(Kaju::HTTPSSocket().Get("http://" + std::string(row.user) + server.URL().substr(7) + "/x", 5), row.body);
    std::vector<std::string> sent;
    for (const std::string& request : server.Requests()) {
      EXPECT_THAT(request, StartsWith("GET /x HTTP/1.1\r\nHost: 127.0.0.1:"));
      const std::size_t place = request.find("Authorization: ");
      sent.push_back(place == std::string::npos ? ""
                                                : request.substr(place + 15, request.find('\r', place) - place - 15));
    }
    EXPECT_EQ(sent, row.sent);
  }
}

TEST_F(UpdateTraffic, FetchesReleaseNotesInTheirEncodingOrFallsBack) {
  const std::string none = "<b>NO UPDATE INFORMATION</b>";
  const struct {
    std::string notes;  // "$" stands for the page's address
    std::string page;
    std::string shown;
  } rows[] = {
      {"", "", none},
      {" \n\t", "", none},
      {"<p>plain</p>", "", "<p>plain</p>"},
      {"text\n$\n", "unasked", ""},
      {"$\nfallback", Reply(200, "<p>page</p>"), "<p>page</p>"},
      {"  $  \r\nfallback", Reply(200, "page"), "page"},
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
  for (const auto& row : rows) {
    SCOPED_TRACE(row.notes + row.page);
    const FaultServer server({{{Reply(200, "")}}, {{row.page}}}, Wire::Plain);
    std::string notes = row.notes;
    const std::size_t place = notes.find('$');
    if (place != std::string::npos) notes.replace(place, 1, server.URL() + "/notes");
    const bool isLink = place != std::string::npos && row.page != "unasked";
    EXPECT_EQ(Kaju::ProcessReleaseNotes(notes), row.shown.empty() ? notes : row.shown);
    EXPECT_EQ(server.Requests().size(), isLink ? 2U : 0U);
  }
}
