#include <csignal>

#include <gtest/gtest.h>

#include "PanelProgram.h"

namespace panel_test {
namespace {

TEST(Program, RefusesWrongArgumentsInOneLine) {
  struct Row {
    std::vector<std::string> arguments;
    std::string error;
  };
  const std::vector<Row> rows{
      {{"--prot", "1"}, "there is no option '--prot'; --help lists them"},
      {{"1701"}, "there is no option '1701'; --help lists them"},
      {{"--port"}, "--port needs a value"},
      {{"--port", "65536"}, "--port takes a number from 0 to 65535, not '65536'"},
      {{"--port=-1"}, "--port takes a number from 0 to 65535, not '-1'"},
      {{"--delay", "1s"}, "--delay takes a number from 0 to 600000, not '1s'"},
      {{"--containers="}, "--containers takes a number from 0 to 1000000, not ''"},
      {{"--help=yes"}, "--help takes no value"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.error);
    PanelProgram program(row.arguments);
    EXPECT_EQ(program.Wait(), 2);
    EXPECT_EQ(program.ErrorOutput(), "corvane-panel: " + row.error + "\n");
    EXPECT_EQ(program.Output(), "");
  }
}

TEST(Program, RefusesAPortThatIsTaken) {
  const Panel first({});
  PanelProgram second({"--port", std::to_string(first.port)});
  EXPECT_EQ(second.Wait(), 1);
  EXPECT_EQ(second.Output(), "");
  EXPECT_EQ(second.ErrorOutput(), "corvane-panel: cannot listen on 127.0.0.1:" + std::to_string(first.port) +
                                      ": the port is taken or the address is not of this machine\n");
}

TEST(Program, EndsAtOnceWithConnectionsOpenAndReplyUnderWay) {
  using Ending = void (*)(PanelProgram&);
  const std::vector<std::pair<std::string, Ending>> endings{
      {"SIGTERM", [](PanelProgram& program) { program.Send(SIGTERM); }},
      {"SIGINT", [](PanelProgram& program) { program.Send(SIGINT); }},
      {"end of the standard input", [](PanelProgram& program) { program.CloseStdin(); }},
  };
  for (const auto& [name, end] : endings) {
    SCOPED_TRACE(name);
    Panel panel({"--delay", "20000"});
    panel.client->set_read_timeout(0, 200'000);
    EXPECT_EQ(panel.Call("/api/v1/containers/list").status, 0) << "the reply must be late";
    const auto start = std::chrono::steady_clock::now();
    end(panel.program);
    EXPECT_EQ(panel.program.Wait(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
}

TEST(Program, PrintsALineForEachRequestAndNoSecrets) {
  Panel panel({"--hostname", "here.example"});
  EXPECT_EQ(panel.Call("/api/v1/system/information").body.at("networkHostname").as_string(), "here.example");
  panel.Call("/api/v1/containers/stop", {{"containerName", "web"}});
  panel.Call("/api/v1/containers/stop", {{"containerName", "a\nPOST /forged ->\x7f 200"}});
  panel.Call("/api/v1/containers/stop", {{"password", "pa55word"}});
  panel.Post("/no%0Athing", "secret body");
  EXPECT_EQ(panel.client->Get("/")->status, 404);
  panel.program.Send(SIGTERM);
  panel.program.Wait();
  EXPECT_EQ(panel.program.Output(),
            "POST /api/v1/system/information -> 200\n"
            "POST /api/v1/containers/stop web -> 200\n"
            "POST /api/v1/containers/stop a?POST?/forged?->??200 -> 400\n"
            "POST /api/v1/containers/stop -> 400\n"
            "POST /no?thing -> 404\n"
            "GET / -> 404\n");
}

}  // namespace
}  // namespace panel_test
