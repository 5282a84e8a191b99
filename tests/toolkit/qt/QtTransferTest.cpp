#include <list>
#include <set>

#include <gmock/gmock.h>

#include "service/TessenServicesClient.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "toolkit/TransferMessages.h"

using namespace testing;
using namespace test_servers;

namespace {

using enum Answer::Then;
const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
const std::string ten = "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n";

std::string BodyOf(const std::string& request) { return request.substr(request.find("\r\n\r\n") + 4); }

/// One POST on the real platform, and notes of what comes of it.
class Exchange final : public toolkit::HTTPTransferEvents {
 public:
  explicit Exchange(const std::string& url, std::string body = "{}",
                    toolkit::CertificateCheck certificates = toolkit::CertificateCheck::Skipped,
                    std::chrono::milliseconds connectTimeout = std::chrono::seconds(30)) {
    toolkit::HTTPRequest request{"POST", url, {}, std::move(body), certificates, connectTimeout};
    Transfer = toolkit::Platform::Current().StartTransfer(std::move(request), *this);
  }
  std::unique_ptr<toolkit::HTTPTransfer> Transfer;
  /// "sent", "headers", "received", and at the end "page STATUS BODY" or "error MESSAGE".
  std::vector<std::string> Notes;
  std::function<void(const std::string& note)> OnNote = [](const std::string&) {};
  [[nodiscard]] bool IsOver() const {
    return !Notes.empty() && (Notes.back().starts_with("page") || Notes.back().starts_with("error"));
  }

 private:
  void HeadersReceived(int status, toolkit::HTTPHeaders, std::optional<std::uint64_t>) override {
    page_ = "page " + std::to_string(status) + " ";
    Note("headers");
  }
  void BodyReceived(std::string_view bytes) override { page_ += bytes, Note("received"); }
  void BodySent(std::uint64_t, std::uint64_t) override { Note("sent"); }
  void Finished() override { Note(page_); }
  void Failed(const toolkit::TransferFailure& failure) override { Note("error " + DescribeFailure(failure)); }
  void Note(const std::string& note) {
    Notes.push_back(note);
    OnNote(note);
  }
  std::string page_;
};

struct Transport : Desktop {
  /// The last note on one POST, after which nothing may come.
  template <typename... Arguments>
  static std::string Outcome(const Arguments&... arguments) {
    Exchange exchange(arguments...);
    if (!Until([&] { return exchange.IsOver(); })) return "nothing";
    const auto count = exchange.Notes.size();
    QTest::qWait(20);
    return exchange.Notes.size() == count ? exchange.Notes.back() : "more after the end: " + exchange.Notes.back();
  }
};

TEST_F(Transport, SendsExactlyThisAndSharesTheConnection) {
  const FaultServer server({{{Reply(200, R"({"a":1})", "Set-Cookie: session=1; Path=/\r\n")}}});
  for (const std::string name : {"first", "second"}) {
    TessenServicesClient client;
    bool isDone = false;
    client.ButtonPressed = [&] { isDone = true; };
    client.Operator_Lookup("username", name);
    client.PressButton(server.URL() + "/Api/v1/system", "InfoRmation");
    ASSERT_TRUE(Until([&] { return isDone; })) << name;
    const std::string body = R"({"username":")" + name + "\"}";
    const std::string head = "POST /Api/v1/system/information HTTP/1.1\r\nHost: 127.0.0.1:";
    ASSERT_THAT(server.Requests().back(), AllOf(StartsWith(head), EndsWith("\r\n\r\n" + body)));
    const auto lines = QString::fromStdString(server.Requests().back()).split("\r\n");
    const QStringList headers(lines.begin() + 2, lines.end() - 2);
    EXPECT_THAT(headers,
                UnorderedElementsAre("Content-Type: application/json", QString("Content-Length: %1").arg(body.size()),
                                     "User-Agent: Corvane", "Accept-Encoding: identity", "Connection: Keep-Alive",
                                     Truly([](const QString& line) { return line.startsWith("Accept-L"); })));
  }
  EXPECT_THAT(server.Requests(), SizeIs(2));
  EXPECT_EQ(server.Connections(), 1U);
}

TEST_F(Transport, EveryWholeReplyArrivesAsItIsAndIsAskedForOnce) {
  const std::string large(2'000'000, 'x');
  const std::tuple<const char*, Answer, std::string> rows[] = {
      {"no body", {{Reply(200, "")}}, "page 200 "},
      {"refusal", {{Reply(400, "no")}}, "page 400 no"},
      {"challenge", {{Reply(401, "who?", "WWW-Authenticate: Basic realm=\"r\"\r\n")}}, "page 401 who?"},
      {"redirect", {{Reply(302, "away", "Location: /other\r\n")}}, "page 302 away"},
      {"redirect, method kept", {{Reply(307, "away", "Location: /other\r\n")}}, "page 307 away"},
      {"asked again", {{Reply(408, "late", "Connection: close\r\n")}, Close}, "page 408 late"},
      {"slow", {{"H", "TTP/1.1 20", "0 OK\r", "\nContent-Le", "ngth: 4\r\n\r", "\ns", "lo", "w"}}, "page 200 slow"},
      {"chunks", {{chunked, "3\r\nabc\r\n", "2\r\nde\r\n0\r\n\r\n"}}, "page 200 abcde"},
      {"until the end", {{"HTTP/1.1 200 OK\r\n\r\nab", "cd"}, Close}, "page 200 abcd"},
      {"called packed", {{Reply(200, "plain", "Content-Encoding: gzip\r\n")}}, "page 200 plain"},
      {"large", {{Reply(200, large)}}, "page 200 " + large},
  };
  for (const auto& [what, answer, expected] : rows) {
    SCOPED_TRACE(what);
    const FaultServer server({answer});
    const std::string outcome = Outcome(server.URL() + "/path", large);
    EXPECT_TRUE(outcome == expected) << outcome.substr(0, 200);  // may be too long to be printed whole
    ASSERT_THAT(server.Requests(), SizeIs(1));
    EXPECT_TRUE(BodyOf(server.Requests()[0]) == large);
  }
}

TEST_F(Transport, WhatWasPressedOnceReachesABrokenServerAtMostOnceAndIsToldAsAnError) {
  const std::pair<const char*, Answer> faults[] = {
      {"closed after the request", {{}, Close}},
      {"reset after the request", {{}, Reset}},
      {"closed in the head", {{"HTTP/1.1 200 OK\r\nContent-"}, Close}},
      {"shorter than announced", {{ten, "abc"}, Close}},
      {"reset in the body", {{ten, "abc"}, Reset}},
      {"between two chunks", {{chunked + "3\r\nabc\r\n"}, Close}},
      {"another protocol", {{"SSH-2.0-Server\r\n"}}},
      {"bytes of no meaning", {{std::string("\0\1\2\xFF\r\n\r\n\0", 9)}, Close}},
  };
  const Answer good{{Reply(200, "{}")}};
  for (const auto& [what, fault] : faults) {
    for (const bool isKept : {false, true}) {
      SCOPED_TRACE(std::string(what) + (isKept ? " when kept" : ""));
      const FaultServer server(isKept ? std::vector{good, fault, good} : std::vector{fault, good});
      EXPECT_TRUE(!isKept || Outcome(server.URL()) == "page 200 {}");
      EXPECT_EQ(Outcome(server.URL(), "restart"),
                "error The connection to the server “127.0.0.1” was closed before its reply was complete.");
      QTest::qWait(60);
      EXPECT_THAT(server.Requests(), SizeIs(isKept ? 2 : 1));
      EXPECT_EQ(BodyOf(server.Requests().back()), "restart");
      EXPECT_EQ(server.Connections(), 1U);
    }
  }
}

TEST_F(Transport, WhoCannotBeReachedIsToldInWordsThatNameTheHost) {
  const FaultServer noTLS({{{Reply(400, "talk HTTPS")}}}, Wire::Plain);
  const FaultServer closing({}, Wire::TLS, Greeting::Close);
  const std::string notValid = "error The address of the server is not a valid one.";
  const std::pair<std::string, std::string> rows[] = {
      {"https" + noTLS.URL().substr(4), "error No secure connection (TLS) could be made to the server “127.0.0.1”"},
      {closing.URL(), "error The connection to the server “127.0.0.1” was closed"},
      {"https://127.0.0.1:" + std::to_string(UnusedPort()), "error The server “127.0.0.1” refused the connection on"},
      {"https://no-such-host.invalid:1701/a", "error There is no server with the name “no-such-host.invalid”"},
      {"https://:1701/a", notValid},
      {"file:///etc/hostname", notValid},
  };
  const auto hasNumbersOfALibrary = AnyOf(HasSubstr("::"), HasSubstr("error:"));
  for (const auto& [url, expected] : rows) {
    EXPECT_THAT(Outcome(url), AllOf(StartsWith(expected), Not(hasNumbersOfALibrary))) << url;
  }
}

TEST_F(Transport, OnlyConnectingHasATimeLimit) {
  const FaultServer mute({}, Wire::TLS, Greeting::Silence);
  const FaultServer slow({Answer()});
  Exchange connecting(mute.URL(), "{}", toolkit::CertificateCheck::Skipped, std::chrono::milliseconds(300));
  Exchange waiting(slow.URL(), "{}", toolkit::CertificateCheck::Skipped, std::chrono::milliseconds(300));
  QTest::qWait(900);
  EXPECT_THAT(connecting.Notes, ElementsAre(AllOf(HasSubstr("“127.0.0.1” did not answer on port"), HasSubstr("time"))));
  EXPECT_THAT(waiting.Notes, Each("sent"));
  EXPECT_THAT(slow.Requests(), SizeIs(1));
}

TEST_F(Transport, AConnectionThatWasClosedWhileIdleIsReplaced) {
  const FaultServer server({{{Reply(200, "{}")}, Close}});
  for (std::size_t count = 1; count <= 3; ++count) {
    EXPECT_EQ(Outcome(server.URL()), "page 200 {}");
    QTest::qWait(50);
    EXPECT_THAT(server.Requests(), SizeIs(count));
  }
}

TEST_F(Transport, CertificatesAreCheckedWhereThatIsAskedForOnAKeptConnectionToo) {
  const FaultServer server({{{Reply(200, "{}")}}});
  EXPECT_EQ(Outcome(server.URL()), "page 200 {}");
  EXPECT_THAT(Outcome(server.URL(), "{}", toolkit::CertificateCheck::Required),
              StartsWith("error No secure connection (TLS) could be made to the server “127.0.0.1”"));
  EXPECT_THAT(server.Requests(), SizeIs(1));
}

TEST_F(Transport, NothingIsToldOfATransferThatWasDropped) {
  for (const std::string when : {"sent", "headers", "received", "page", "error"}) {
    SCOPED_TRACE(when);
    const bool fails = when == "error";
    const FaultServer server({{{ten, "01234", fails ? "" : "56789"}, fails ? Close : Keep}});
    Exchange exchange(server.URL());
    exchange.OnNote = [&](const std::string& note) {
      EXPECT_TRUE(exchange.Transfer) << note;
      if (note.starts_with(when)) exchange.Transfer.reset();
    };
    EXPECT_TRUE(Until([&] { return !exchange.Transfer; }));
    QTest::qWait(100);
    EXPECT_THAT(server.Requests(), SizeIs(Le(1U)));
  }
}

TEST_F(Transport, ManyRequestsAreUnderWayAtOnce) {
  FaultServer server({{{Reply(200, "{}")}, Keep, Answer::Start::WhenReleased}});
  std::list<Exchange> exchanges;
  for (char body = 'a'; body < 'u'; ++body) exchanges.emplace_back(server.URL(), std::string(1, body));
  EXPECT_TRUE(Until([&] { return server.Requests().size() == exchanges.size(); })) << server.Requests().size();
  std::set<std::string> bodies;
  for (const std::string& request : server.Requests()) bodies.insert(BodyOf(request));
  EXPECT_EQ(bodies.size(), exchanges.size());
  server.Release();
  for (const auto& exchange : exchanges) EXPECT_TRUE(Until([&] { return exchange.IsOver(); }));
}

}  // namespace
