#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "service/TessenServicesClient.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "toolkit/HTTPSocket.h"

using test_servers::Answer;
using test_servers::FaultServer;
using test_servers::Greeting;
using test_servers::Reply;
using test_servers::Wire;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

constexpr auto closes = Answer::Then::Close;
constexpr auto keeps = Answer::Then::Keep;
constexpr auto resets = Answer::Then::Reset;
constexpr auto whenReleased = Answer::Start::WhenReleased;
const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";

std::string BodyOf(const std::string& request) { return request.substr(request.find("\r\n\r\n") + 4); }

std::vector<std::string> InPieces(const std::string& text) {
  std::vector<std::string> pieces;
  for (const char byte : text) pieces.emplace_back(1, byte);
  return pieces;
}

/// A socket that writes down what happens to it. The notes outlive it.
class NotingSocket final : public toolkit::HTTPSocket {
 public:
  struct Notes {
    std::vector<std::string> Lines;
    std::function<void(const std::string& line)> OnLine;
    [[nodiscard]] bool IsOver() const {
      return !Lines.empty() && (Lines.back().starts_with("page") || Lines.back().starts_with("error"));
    }
  };

  explicit NotingSocket(Notes& notes) : notes_(notes) { ValidateCertificates = false; }
  void Post(const std::string& url, std::string body = "{}") {
    SetRequestContent(std::move(body), "application/json");
    Send("POST", url);
  }

 protected:
  void Event_Error(const toolkit::RuntimeException& error) override { Note("error " + error.Message()); }
  void Event_FileReceived(const std::string&, int, const toolkit::FolderItem&) override { Note("file"); }
  void Event_HeadersReceived(const std::string&, int status) override { Note("headers " + std::to_string(status)); }
  void Event_PageReceived(const std::string&, int status, std::string content) override {
    Note("page " + std::to_string(status) + " " + content);
  }
  void Event_ReceiveProgress(std::uint64_t, std::optional<std::uint64_t>) override { Note("received"); }
  void Event_SendProgress(std::uint64_t, std::uint64_t) override { Note("sent"); }

 private:
  void Note(const std::string& line) {
    notes_.Lines.push_back(line);
    if (const auto react = notes_.OnLine) react(line);
  }

  Notes& notes_;
};

class Transport : public Desktop {
 protected:
  /// What came of one POST: "page STATUS BODY" or "error MESSAGE". Nothing else may come after it.
  static std::string Outcome(const std::string& url, const std::string& body = "{}", bool validates = false) {
    NotingSocket::Notes notes;
    NotingSocket socket(notes);
    socket.ValidateCertificates = validates;
    socket.Post(url, body);
    if (!Until([&] { return notes.IsOver(); })) return "nothing";
    const auto lines = notes.Lines.size();
    QTest::qWait(20);
    return notes.Lines.size() == lines ? notes.Lines.back() : "more after the end: " + notes.Lines.back();
  }
};

TEST_F(Transport, SendsExactlyThisAndReusesTheConnection) {
  const std::string reply = Reply(200, R"({"a":1})", "Set-Cookie: session=1; Path=/\r\n");
  const FaultServer server({{{reply}}});
  for (const char* name : {"first", "second"}) {
    TessenServicesClient client;  // a new one each time: the connection belongs to all
    bool isDone = false;
    client.ButtonPressed = [&] { isDone = true; };
    client.Operator_Lookup("username", name);
    client.PressButton(server.URL() + "/Api/v1/system", "InfoRmation");
    ASSERT_TRUE(Until([&] { return isDone; })) << name;
    EXPECT_EQ(client.Operator_Lookup("a").Text(), "1");

    const std::string body = std::string(R"({"username":")") + name + "\"}";
    std::string head = server.Requests().back();
    EXPECT_EQ(BodyOf(head), body);
    head.resize(head.size() - body.size());
    EXPECT_THAT(head, StartsWith("POST /Api/v1/system/information HTTP/1.1\r\nHost: 127.0.0.1:"));
    std::vector<std::string> headers;
    for (const QString& line : QString::fromStdString(head).split("\r\n", Qt::SkipEmptyParts)) {
      headers.push_back(line.toStdString());
    }
    headers.erase(headers.begin());
    EXPECT_THAT(headers, testing::UnorderedElementsAre(
                             "Host: 127.0.0.1:" + std::to_string(server.Port()), "Content-Type: application/json",
                             "Content-Length: " + std::to_string(body.size()), "User-Agent: Corvane",
                             "Accept-Encoding: identity", StartsWith("Accept-Language: "), "Connection: Keep-Alive"));
  }
  EXPECT_THAT(server.Requests(), SizeIs(2));
  EXPECT_EQ(server.Connections(), 1U);
}

TEST_F(Transport, EveryWholeReplyArrivesAsItIsAndIsAskedForOnce) {
  const FaultServer elsewhere({{{Reply(200, "elsewhere")}}}, Wire::Plain);
  const std::string large(8'000'000, 'x');
  const struct {
    const char* what;
    Answer answer;
    std::string expected;
  } rows[] = {
      {"plain", {{Reply(200, "{}")}}, "page 200 {}"},
      {"no body", {{Reply(200, "")}}, "page 200 "},
      {"refusal", {{Reply(400, "no")}}, "page 400 no"},
      {"challenge", {{Reply(401, "who?", "WWW-Authenticate: Basic realm=\"r\"\r\n")}}, "page 401 who?"},
      {"digest", {{Reply(401, "who?", "WWW-Authenticate: Digest realm=\"r\", nonce=\"n\"\r\n")}}, "page 401 who?"},
      {"proxy challenge", {{Reply(407, "who?", "Proxy-Authenticate: Basic realm=\"r\"\r\n")}}, "page 407 who?"},
      {"not found", {{Reply(404, "none")}}, "page 404 none"},
      {"redirect", {{Reply(302, "away", "Location: " + elsewhere.URL() + "/\r\n")}}, "page 302 away"},
      {"redirect, method kept", {{Reply(307, "away", "Location: /other\r\n")}}, "page 307 away"},
      {"server error", {{Reply(500, "oh")}}, "page 500 oh"},
      {"unavailable", {{Reply(503, "later", "Retry-After: 0\r\n")}}, "page 503 later"},
      {"byte by byte", {InPieces(Reply(200, "slow")), keeps, {}, std::chrono::milliseconds(5)}, "page 200 slow"},
      {"late", {{Reply(200, "a"), "no part of it"}, closes}, "page 200 a"},
      {"chunks", {{chunked, "3\r\nabc\r\n", "2\r\nde\r\n0\r\n\r\n"}}, "page 200 abcde"},
      {"until the end", {{"HTTP/1.1 200 OK\r\n\r\nab", "cd"}, closes}, "page 200 abcd"},
      {"continued", {{"HTTP/1.1 100 Continue\r\n\r\n" + Reply(200, "a")}}, "page 200 a"},
      {"called packed", {{Reply(200, "plain", "Content-Encoding: gzip\r\n")}}, "page 200 plain"},
      {"large", {{Reply(200, large)}}, "page 200 " + large},
  };
  for (const auto& row : rows) {
    for (const Wire wire : {Wire::TLS, Wire::Plain}) {
      SCOPED_TRACE(std::string(row.what) + (wire == Wire::TLS ? " over TLS" : ""));
      const FaultServer server({row.answer}, wire);
      const std::string outcome = Outcome(server.URL() + "/path", large);
      EXPECT_TRUE(outcome == row.expected) << outcome.substr(0, 200);  // may be too long to be printed whole
      ASSERT_THAT(server.Requests(), SizeIs(1));
      EXPECT_TRUE(BodyOf(server.Requests()[0]) == large);
    }
  }
  EXPECT_EQ(elsewhere.Connections(), 0U);
}

TEST_F(Transport, EveryFaultIsToldInWordsThatNameTheHost) {
  const struct {
    const char* what;
    Answer answer;
    const char* expected;
    Greeting greeting = Greeting::Serve;
  } rows[] = {
      {"closed after the request", {{}, closes}, "closed the connection before its reply was complete"},
      {"reset after the request", {{}, resets}, "closed the connection before its reply was complete"},
      {"closed in the head", {{"HTTP/1.1 200 OK\r\nContent-"}, closes}, "closed the connection before"},
      {"shorter than announced", {{"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n", "abc"}, closes}, "closed the"},
      {"reset in the body", {{"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n", "abc"}, resets}, "closed the"},
      {"announced, none sent", {{"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n"}, closes}, "closed the"},
      {"between two chunks", {{chunked + "3\r\nabc\r\n"}, closes}, "closed the"},
      {"within a chunk", {{chunked + "a\r\nabc"}, closes}, "closed the"},
      {"another protocol", {{"SSH-2.0-Server\r\n"}, closes}, "closed the"},
      {"another protocol, kept", {{"SSH-2.0-Server\r\n"}}, "closed the"},
      {"bytes of no meaning", {{std::string("\0\1\2\xFF\r\n\r\n\0", 9)}, closes}, "closed the"},
      {"closed at once", {}, "", Greeting::Close},
  };
  for (const auto& row : rows) {
    for (const Wire wire : {Wire::TLS, Wire::Plain}) {
      SCOPED_TRACE(std::string(row.what) + (wire == Wire::TLS ? " over TLS" : ""));
      const FaultServer server({row.answer}, wire, row.greeting);
      EXPECT_THAT(Outcome(server.URL()), AllOf(StartsWith("error The server “127.0.0.1” "), HasSubstr(row.expected)));
      EXPECT_LE(server.Requests().size(), 1U);
    }
  }
  const FaultServer noTLS({{{Reply(400, "talk HTTPS")}}}, Wire::Plain);
  const std::string address = "127.0.0.1:" + std::to_string(noTLS.Port());
  const std::string closedPort = std::to_string(test_servers::UnusedPort());
  const struct {
    std::string url;
    const char* expected;
  } urls[] = {
      {"https://" + address, "error No secure connection (TLS) could be made to the server “127.0.0.1” on port "},
      {"https://127.0.0.1:" + closedPort, "error The server “127.0.0.1” refused the connection on port "},
      {"https://no-such-host.invalid:1701/a", "error There is no server with the name “no-such-host.invalid”"},
      {"https://two words:1701/a", "error The address of the server is not a valid one."},
      {"https://:1701/a", "error The address of the server is not a valid one."},
      {"https://host:port/a", "error The address of the server is not a valid one."},
      {"file:///etc/hostname", "error The address of the server is not a valid one."},
      {"", "error The address of the server is not a valid one."},
  };
  for (const auto& row : urls) {
    EXPECT_THAT(Outcome(row.url), AllOf(StartsWith(row.expected), Not(HasSubstr("::")), Not(HasSubstr("error:"))))
        << row.url;
  }
}

TEST_F(Transport, WhatWasPressedOnceReachesTheServerAtMostOnce) {
  const Answer good{{Reply(200, "{}")}};
  const struct {
    const char* what;
    Answer fault;
  } faults[] = {{"closed", {{}, closes}},
                {"reset", {{}, resets}},
                {"closed in the head", {{"HTTP/1.1 2"}, closes}},
                {"closed in the body", {{"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\na"}, closes}},
                {"asked to come again", {{Reply(408, "", "Connection: close\r\n")}, closes}}};
  for (const auto& fault : faults) {
    for (const Wire wire : {Wire::TLS, Wire::Plain}) {
      for (const bool isKept : {false, true}) {
        SCOPED_TRACE(std::string(fault.what) + (isKept ? " when kept" : "") + (wire == Wire::TLS ? " over TLS" : ""));
        const FaultServer server(isKept ? std::vector{good, fault.fault, good} : std::vector{fault.fault, good}, wire);
        if (isKept) Outcome(server.URL());
        TessenServicesClient client;
        std::vector<std::string> errors;
        client.Error = [&](const toolkit::RuntimeException& error) { errors.push_back(error.Message()); };
        client.ButtonPressed = [] { ADD_FAILURE() << "the server never answered this"; };
        client.Operator_Lookup("containerName", "web");
        client.PressButton(server.URL(), "restart");
        EXPECT_TRUE(Until([&] { return !errors.empty(); }));
        QTest::qWait(150);
        EXPECT_THAT(errors, SizeIs(1));
        auto requests = server.Requests();
        EXPECT_THAT(requests, SizeIs(isKept ? 2 : 1));
        EXPECT_EQ(BodyOf(requests.back()), R"({"containerName":"web"})");
        EXPECT_EQ(server.Connections(), 1U);
      }
    }
  }
}

TEST_F(Transport, AConnectionThatWasClosedWhileIdleIsReplaced) {
  const FaultServer server({{{Reply(200, "{}")}, closes}});
  for (std::size_t count = 1; count <= 3; ++count) {
    EXPECT_EQ(Outcome(server.URL()), "page 200 {}");
    QTest::qWait(50);
    EXPECT_EQ(server.Requests().size(), count);
  }
}

TEST_F(Transport, CertificatesAreCheckedWhereThatIsAskedFor) {
  const FaultServer server({{{Reply(200, "{}")}}});
  const auto refused = AllOf(StartsWith("error No secure connection (TLS)"), HasSubstr("“127.0.0.1”"));
  EXPECT_THAT(Outcome(server.URL(), "{}", true), refused);
  EXPECT_THAT(server.Requests(), IsEmpty());
  EXPECT_EQ(Outcome(server.URL(), "{}", false), "page 200 {}");
  EXPECT_THAT(Outcome(server.URL(), "{}", true), refused);
  EXPECT_THAT(server.Requests(), SizeIs(1));
}

TEST_F(Transport, OnlyConnectingHasATimeLimit) {
  class Events final : public toolkit::HTTPTransferEvents {
   public:
    std::vector<toolkit::TransferFault> Faults;
    void HeadersReceived(int, toolkit::HTTPHeaders, std::optional<std::uint64_t>) override {}
    void BodyReceived(std::string_view) override {}
    void BodySent(std::uint64_t, std::uint64_t) override {}
    void Finished() override {}
    void Failed(const toolkit::TransferFailure& failure) override { Faults.push_back(failure.Fault); }
  };
  for (const Greeting greeting : {Greeting::Silence, Greeting::Serve}) {
    const FaultServer server({{}}, Wire::TLS, greeting);
    Events events;
    toolkit::HTTPRequest request{.Method = "POST", .URL = server.URL(), .Headers = {}, .Body = "{}"};
    request.Certificates = toolkit::CertificateCheck::Skipped;
    request.ConnectTimeout = std::chrono::milliseconds(300);
    const auto transfer = platform.StartTransfer(request, events);
    QTest::qWait(900);
    if (greeting == Greeting::Serve) {
      EXPECT_THAT(server.Requests(), SizeIs(1));
      EXPECT_THAT(events.Faults, IsEmpty());
    } else {
      EXPECT_THAT(events.Faults, ElementsAre(toolkit::TransferFault::ConnectTimedOut));
    }
  }
}

TEST_F(Transport, NothingReachesASocketThatIsGone) {
  const std::string half = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nab";
  const struct {
    const char* when;  // the note at which the socket is destroyed, or what the server has seen by then
    std::vector<std::string> reply;
  } rows[] = {
      {"at once", {half, "cd"}}, {"connected", {half, "cd"}}, {"requested", {half, "cd"}},  {"sent", {half, "cd"}},
      {"headers", {half, "cd"}}, {"received", {half, "cd"}},  {"page", {Reply(200, "ab")}}, {"error", {half}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.when);
    const std::string when = row.when;
    const auto start = when == "connected" || when == "requested" ? whenReleased : Answer::Start::AtOnce;
    FaultServer server({{row.reply, when == "error" ? closes : keeps, start}, {{Reply(200, "next")}}});
    NotingSocket::Notes notes;
    auto socket = std::make_unique<NotingSocket>(notes);
    bool isGone = false;
    const auto destroy = [&] { socket.reset(), isGone = true; };
    notes.OnLine = [&](const std::string& line) {
      EXPECT_FALSE(isGone) << line;
      if (line.starts_with(when)) destroy();
    };
    socket->Post(server.URL(), "{}");
    if (when == "at once") destroy();
    if (start == whenReleased) {
      EXPECT_TRUE(Until([&] { return (when == "connected" ? server.Connections() : server.Requests().size()) == 1; }));
      destroy();
    }
    EXPECT_TRUE(Until([&] { return isGone; }));
    server.Release();
    QTest::qWait(60);
    EXPECT_THAT(server.Requests(), SizeIs(testing::Le(1U)));
    EXPECT_THAT(Outcome(server.URL()), StartsWith("page 200"));
  }
}

TEST_F(Transport, ASecondPressAbandonsTheFirst) {
  FaultServer server({{{Reply(200, R"({"n":"first"})")}, keeps, whenReleased}, {{Reply(200, R"({"n":"second"})")}}});
  TessenServicesClient client;
  std::vector<std::string> replies;
  client.ButtonPressed = [&] { replies.push_back(client.Operator_Lookup("n").Text()); };
  client.Error = [](const toolkit::RuntimeException& error) { ADD_FAILURE() << error.Message(); };
  client.PressButton(server.URL(), "one");
  ASSERT_TRUE(Until([&] { return server.Requests().size() == 1; }));
  client.PressButton(server.URL(), "two");
  ASSERT_TRUE(Until([&] { return !replies.empty(); }));
  server.Release();
  QTest::qWait(60);
  EXPECT_THAT(replies, ElementsAre("second"));
  EXPECT_THAT(server.Requests(), ElementsAre(StartsWith("POST /one "), StartsWith("POST /two ")));
}

TEST_F(Transport, ManyRequestsAreUnderWayAtOnce) {
  constexpr std::size_t many = 20;
  FaultServer server({{{Reply(200, "{}")}, keeps, whenReleased}});
  std::vector<std::unique_ptr<TessenServicesClient>> clients;
  std::size_t replies = 0;
  for (std::size_t number = 0; number < many; ++number) {
    clients.push_back(std::make_unique<TessenServicesClient>());
    clients.back()->ButtonPressed = [&] { ++replies; };
    clients.back()->Operator_Lookup("number", std::uint64_t{number});
    clients.back()->PressButton(server.URL(), "wait");
  }
  EXPECT_TRUE(Until([&] { return server.Requests().size() == many; })) << server.Requests().size();
  EXPECT_EQ(replies, 0U);
  server.Release();
  EXPECT_TRUE(Until([&] { return replies == many; })) << replies;
  std::vector<std::string> bodies;
  for (const std::string& request : server.Requests()) bodies.push_back(BodyOf(request));
  std::sort(bodies.begin(), bodies.end());
  EXPECT_THAT(bodies, SizeIs(many));
  EXPECT_EQ(std::unique(bodies.begin(), bodies.end()), bodies.end());
}

}  // namespace
