#include <chrono>

#include <gmock/gmock.h>

#include "toolkit/JSON.h"

using toolkit::GenerateJSON;
using toolkit::ParseJSON;

TEST(JSON, ValuesBecomeTextForPeople) {
  const struct {
    std::string json, text;
    bool isTextOrNumber;
  } rows[] = {
      {R"("a <b>\u0000\n")", std::string("a <b>\0\n", 7), true},
      {"null", "", false},
      {"true", "true", false},
      {"-9223372036854775808", "-9223372036854775808", true},
      {"18446744073709551615", "18446744073709551615", true},
      {"12.5", "12.5", true},
      {"8.0", "8", true},
      {"-99.95", "-99.95", true},
      {"100000.0", "100000", true},
      {"0.0001", "0.0001", true},
      {"1e22", "1e+22", true},
      {R"({"a":[1,"b",null]})", R"({"a":[1,"b",null]})", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.json);
    const toolkit::Variant value = ParseJSON("{\"v\":" + row.json + "}").at("v");
    EXPECT_EQ(value.Text(), row.text);
    EXPECT_EQ(value.IsTextOrNumber(), row.isTextOrNumber);
    EXPECT_EQ(value.IsNil(), row.json == "null");
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
