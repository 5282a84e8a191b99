#include <vector>

#include <gtest/gtest.h>

#include "panel/Options.h"

namespace panel {
namespace {

TEST(Options, BothFormsAreReadAndNonsenseIsRefusedInOneLine) {
  const std::vector<const char*> right{"--port=0", "--user", "ann", "--until-stdin-closes"};
  const Options options = ParseOptions(right);
  EXPECT_TRUE(options.port == 0 && options.user == "ann" && options.untilStdinCloses && !options.help);
  const std::vector<std::pair<std::vector<const char*>, std::string>> rows{
      {{"--prot", "1"}, "there is no option '--prot'; --help lists them"},
      {{"1701"}, "there is no option '1701'; --help lists them"},
      {{"--port"}, "--port needs a value"},
      {{"--port", "65536"}, "--port takes a number from 0 to 65535, not '65536'"},
      {{"--port=-1"}, "--port takes a number from 0 to 65535, not '-1'"},
      {{"--containers="}, "--containers takes a number from 0 to 1000000, not ''"},
      {{"--help=yes"}, "--help takes no value"},
  };
  for (const auto& [arguments, error] : rows) {
    try {
      static_cast<void>(ParseOptions(arguments));
      ADD_FAILURE() << "accepted, but " << error;
    } catch (const UsageError& refusal) {
      EXPECT_EQ(refusal.what(), error);
    }
  }
}

}  // namespace
}  // namespace panel
