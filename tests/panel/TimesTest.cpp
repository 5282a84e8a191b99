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
  const Time leapDay = sys_days(year(2024) / 2 / 29) + 9h + 8min + 7s + 60ms;
  const Time lastMoment = sys_days(year(2024) / 1 / 1) - 1ns;
  std::string text = "at ";
  AppendTimestamp(text, leapDay);
  AppendTimestamp(text, lastMoment);
  EXPECT_EQ(text, "at 2024-02-29T09:08:07.060000000Z2023-12-31T23:59:59.999999999Z");
  EXPECT_EQ(ToUtcMinute(leapDay) + ToUtcMinute(lastMoment), "2024-02-29 09:08 UTC2023-12-31 23:59 UTC");
}

}  // namespace
}  // namespace panel
