#include <map>
#include <thread>
#include <unistd.h>

#include <boost/json.hpp>
#include <gtest/gtest.h>
#include <httplib.h>

#include "panel/EngineFleet.h"
#include "panel/Service.h"

namespace panel {
namespace {

/// An engine with two containers on a Unix socket, which notes what it is asked, and the panel service before it.
class Engine : public testing::Test {
 protected:
  Engine() {
    server.set_address_family(AF_UNIX);
    const auto answer = [this](const httplib::Request& request, httplib::Response& response) {
      asked = request.method + " " + request.target;
      const auto found = answers.find(request.path);
      response.status = found == answers.end() ? 404 : found->second.first;
      response.set_content(found == answers.end() ? "" : found->second.second, "text/plain");
    };
    server.Get(".*", answer).Post(".*", answer);
    server.bind_to_port(path, 80);
    thread = std::thread([this] { server.listen_after_bind(); });
    while (!server.is_running()) std::this_thread::yield();
  }
  void Stop() {
    server.stop();
    if (thread.joinable()) thread.join();
    unlink(path.c_str());
  }
  void TearDown() override { Stop(); }

  /// The body of the service's reply, or its "_error".
  std::string Call(const std::string& call, const std::string& container = "", const std::string& count = "") {
    const boost::json::object request{
        {"containerName", container}, {"logCount", count}, {"username", ""}, {"password", ""}};
    return service.Answer("/api/v1/containers/" + call, boost::json::serialize(request)).body;
  }

  std::string path = "panel-test-engine-" + std::to_string(getpid());
  std::map<std::string, std::pair<int, std::string>> answers{
      {"/containers/json",
       {200, R"([{"Id":"22","Names":["/web/alias","/web"],"State":"running","Status":"Up 3 minutes"},
                 {"Id":"11","Names":["/mail"],"State":"exited","Status":"Exited (0) 2 days ago"}])"}},
      {"/images/json",
       {200, R"([{"RepoTags":["localhost/corvane-backup:web-20240501-123456","corvane-backup:web-20231231-235959"]},
                 {"RepoTags":null},{"RepoTags":["corvane-backup:web-mail-20250101-000000"]}])"}},
  };
  std::string asked;
  httplib::Server server;
  std::thread thread;
  EngineFleet fleet{path, "here"};
  Service service{{}, fleet};
};

TEST_F(Engine, ContainersAreListedByNameWithTheirNewestBackup) {
  EXPECT_EQ(Call("list"), R"({"containers":{"0":["mail","exited","Exited (0) 2 days ago","never"],)"
                          R"("1":["web","running","Up 3 minutes","2024-05-01 12:34 UTC"]}})");
}

TEST_F(Engine, ActionsAskForTheContainerOfExactlyThatNameAndTellTheAnswer) {
  const std::pair<int, std::string> rows[] = {{204, R"({"status":"web has been stopped."})"},
                                              {304, R"({"status":"web is stopped already."})"},
                                              {500, R"({"_error":"The container engine refused: broken"})"}};
  for (const auto& [status, reply] : rows) {
    answers["/containers/22/stop"] = {status, status < 400 ? "" : R"({"message":"broken"})"};
    EXPECT_EQ(Call("stop", "web"), reply);
    EXPECT_EQ(asked, "POST /containers/22/stop?t=10");
  }
  for (const std::string name : {"", "22", "we", "../web", "web/alias", "WEB"}) {
    EXPECT_NE(Call("stop", name).find("There is no container named"), std::string::npos) << name;
    EXPECT_EQ(asked, "GET /containers/json?all=true") << name;
  }
}

TEST_F(Engine, LogLinesComeOutWholeAndInUtf8) {
  const auto frame = [](char output, const std::string& text) {
    return std::string{output, 0, 0, 0, 0, 0, 0, static_cast<char>(text.size())} + text;
  };
  const char* const terminal = R"({"Config":{"Tty":true}})";
  const char* const frames = R"({"Config":{"Tty":false}})";
  const std::string begun = frame(1, "be") + frame(2, "err\n");
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {terminal, "a\r\n\"b\"\\\x01", R"({"log":{"0":["a"],"1":["\"b\"\\\u0001"]}})"},
      {terminal, "€𝄞\xc3(\xff", R"({"log":{"0":["€𝄞�(�"]}})"},
      {frames, begun + frame(1, "gun Zo\xc3") + frame(1, "\xab\n\n"),
       R"({"log":{"0":["err"],"1":["begun Zoë"],"2":[""]}})"},
      {frames, begun + frame(1, "x\n").substr(0, 9), R"({"_error":"The container engine's log is cut off."})"},
  };
  for (const auto& [facts, log, reply] : rows) {
    answers["/containers/11/json"] = {200, facts};
    answers["/containers/11/logs"] = {200, log};
    EXPECT_EQ(Call("logs", "mail", "25"), reply);
    EXPECT_EQ(asked, "GET /containers/11/logs?stdout=true&stderr=true&timestamps=true&tail=25");
  }
}

TEST_F(Engine, WhenItIsGoneOrTalksNonsenseThatIsARefusal) {
  for (const std::string nonsense : {"", "[", "{}", "7"}) {
    answers["/containers/json"].second = nonsense;
    EXPECT_EQ(Call("list"), R"({"_error":"The container engine's answer cannot be understood."})") << nonsense;
  }
  Stop();
  EXPECT_EQ(Call("list"), R"({"_error":"The container engine cannot be reached."})");
}

}  // namespace
}  // namespace panel
