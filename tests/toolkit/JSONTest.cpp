#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include "toolkit/JSON.h"

using toolkit::ParseJSON;

TEST(JSON, NumbersBecomeTextForPeopleTheLastEqualKeyCountsAndSixtyFourLevelsAreNotTooDeep) {
  const std::pair<const char*, const char*> rows[] = {{"8.0", "8"},         {"-99.95", "-99.95"},
                                                      {"0.0001", "0.0001"}, {"100000.0", "100000"},
                                                      {"1e22", "1e+22"},    {"12.5", "12.5"}};
  for (const auto& [json, text] : rows) EXPECT_EQ(toolkit::ToText(boost::json::parse(json)), text);
  EXPECT_EQ(GenerateJSON(ParseJSON(R"({"a":1,"b":2,"a":3})")), R"({"a":3,"b":2})");
  const std::string deepest = "{\"a\":" + std::string(63, '[') + std::string(63, ']') + "}";
  EXPECT_EQ(GenerateJSON(ParseJSON(deepest)), deepest);
}
