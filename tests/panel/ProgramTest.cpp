#include <csignal>

#include <gtest/gtest.h>

#include "PanelProgram.h"

namespace panel_test {
namespace {

TEST(Program, RefusesWrongArgumentsInOneLineOfErrors) {
  struct Row {
    std::string arguments;
    int status;
    std::string error;
  };
  const Panel panel;
  const std::string taken = "127.0.0.1:" + std::to_string(panel.port);
  const std::vector<Row> rows{
      {"--prot 1", 2, "there is no option '--prot'; --help lists them"},
      {"1701", 2, "there is no option '1701'; --help lists them"},
      {"--port", 2, "--port needs a value"},
      {"--port 65536", 2, "--port takes a number from 0 to 65535, not '65536'"},
      {"--port=-1", 2, "--port takes a number from 0 to 65535, not '-1'"},
      {"--delay 1s", 2, "--delay takes a number from 0 to 600000, not '1s'"},
      {"--containers=", 2, "--containers takes a number from 0 to 1000000, not ''"},
      {"--help=yes", 2, "--help takes no value"},
      {"--engine tcp:x", 2, "--engine takes 'unix:' and a path of at most 107 bytes, not 'tcp:x'"},
      {"--port " + std::to_string(panel.port), 1,
       "cannot listen on " + taken + ": the port is taken or the address is not of this machine"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.error);
    // Of the two outputs, only that for errors is read.
    PanelProgram program(row.arguments + " 2>&1 >/dev/null");
    EXPECT_EQ(program.Read(), "corvane-panel: " + row.error + "\n");
    EXPECT_EQ(program.Wait(), row.status);
  }
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
    Panel panel("--delay 20000");
    panel.client->set_read_timeout(0, 200'000);
    EXPECT_EQ(panel.Call("/api/v1/containers/list").status, 0) << "the reply must be late";
    const auto start = std::chrono::steady_clock::now();
    end(panel.program);
    EXPECT_EQ(panel.program.Wait(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
}

TEST(Program, PrintsALineForEachRequestAndNoSecrets) {
  Panel panel("--hostname here.example");
  EXPECT_EQ(panel.Call("/api/v1/system/information").body.at("networkHostname").as_string(), "here.example");
  EXPECT_EQ(panel.Call("/api/v1/containers/stop", {{"containerName", "web"}}).status, 200);
  EXPECT_EQ(panel.Call("/api/v1/containers/stop", {{"containerName", "a\nPOST /forged ->\x7f 200"}}).status, 400);
  EXPECT_EQ(panel.Call("/api/v1/containers/stop", {{"password", "pa55word"}}).status, 400);
  EXPECT_EQ(panel.Post("/no%0Athing", "secret body").status, 404);
  EXPECT_EQ(panel.client->Get("/")->status, 404);
  panel.program.Send(SIGTERM);
  EXPECT_EQ(panel.program.Read(),
            "POST /api/v1/system/information -> 200\n"
            "POST /api/v1/containers/stop web -> 200\n"
            "POST /api/v1/containers/stop a?POST?/forged?->??200 -> 400\n"
            "POST /api/v1/containers/stop -> 400\n"
            "POST /no?thing -> 404\n"
            "GET / -> 404\n");
}

}  // namespace
}  // namespace panel_test
