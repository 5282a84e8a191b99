#include <set>

#include <gtest/gtest.h>

#include "panel/DemoLog.h"

namespace panel {
namespace {

TEST(DemoLog, LinesStayTheSameDifferAndHaveTheToldSize) {
  constexpr std::uint64_t length = 100'000;
  const Time end(std::chrono::sys_days(std::chrono::year(2024) / 5 / 1));
  const DemoLog log("web", length, end);
  std::set<std::string> messages;
  std::size_t bytes = 0;
  std::string line;
  for (std::uint64_t i = 0; i < length; ++i) {
    log.WriteLine(i, line);
    bytes += line.size();
    messages.insert(line.substr(line.find(' ')));
  }
  EXPECT_EQ(line.substr(0, 31), "2024-05-01T00:00:00.000000000Z ");
  EXPECT_GT(messages.size(), length / 2);
  EXPECT_NEAR(static_cast<double>(bytes) / length, 93, 2) << "with 14 bytes around it, a line has about 107";

  std::string again;
  DemoLog("web", length, end).WriteLine(length - 1, again);
  EXPECT_EQ(again, line);
  DemoLog("shop", length, end).WriteLine(length - 1, again);
  EXPECT_NE(again, line);
}

}  // namespace
}  // namespace panel
