#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "panel/Times.h"

namespace panel {
namespace {

using namespace std::chrono;

TEST(Times, LengthsInTheirLargestUnit) {
  const std::vector<std::pair<seconds, std::string>> rows{
      {-5s, "0 seconds"},      {0s, "0 seconds"},    {1s, "1 second"},      {59s, "59 seconds"},
      {60s, "1 minute"},       {119s, "1 minute"},   {59min, "59 minutes"}, {1h, "1 hour"},
      {hours(23), "23 hours"}, {hours(24), "1 day"}, {days(6), "6 days"},   {days(15), "2 weeks"},
  };
  for (const auto& [length, words] : rows) EXPECT_EQ(ToWords(length), words);
}

TEST(Times, PointsInTime) {
  struct Row {
    Time time;
    std::string minute;
    std::string timestamp;
  };
  const sys_days newYear(year(2024) / 1 / 1);
  const std::vector<Row> rows{
      {newYear, "2024-01-01 00:00 UTC", "2024-01-01T00:00:00.000000000Z"},
      {newYear - 1ns, "2023-12-31 23:59 UTC", "2023-12-31T23:59:59.999999999Z"},
      {newYear + days(59) + 9h + 8min + 7s + 60ms, "2024-02-29 09:08 UTC", "2024-02-29T09:08:07.060000000Z"},
  };
  for (const Row& row : rows) {
    std::string text = "at ";
    AppendTimestamp(text, row.time);
    EXPECT_EQ(text, "at " + row.timestamp);
    EXPECT_EQ(ToUtcMinute(row.time), row.minute);
  }
}

}  // namespace
}  // namespace panel
