#include <chrono>

#include <gtest/gtest.h>

#include "toolkit/JSON.h"

using toolkit::GenerateJSON;
using toolkit::ParseJSON;

TEST(JSON, NumbersBecomeTextForPeople) {
  const std::pair<const char*, const char*> rows[] = {{"8.0", "8"},         {"-99.95", "-99.95"},
                                                      {"0.0001", "0.0001"}, {"100000.0", "100000"},
                                                      {"1e22", "1e+22"},    {"12.5", "12.5"}};
  for (const auto& [json, text] : rows) {
    EXPECT_EQ(toolkit::Variant(ParseJSON(std::string(R"({"v":)") + json + "}").at("v")).Text(), text);
  }
}

TEST(JSON, DatesAreISO8601TheLastEqualKeyCountsAndSixtyFourLevelsAreNotTooDeep) {
  const toolkit::Date date = std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) + std::chrono::seconds(3723);
  EXPECT_EQ(toolkit::Variant(date).Text(), "2024-02-29T01:02:03Z");
  EXPECT_EQ(GenerateJSON({{"when", date}}), R"({"when":"2024-02-29T01:02:03Z"})");
  EXPECT_EQ(GenerateJSON(ParseJSON(R"({"a":1,"b":2,"a":3})")), R"({"a":3,"b":2})");
  const std::string deepest = "{\"a\":" + std::string(63, '[') + std::string(63, ']') + "}";
  EXPECT_EQ(GenerateJSON(ParseJSON(deepest)), deepest);
}
