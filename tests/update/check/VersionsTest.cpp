#include <gmock/gmock.h>

#include "update/check/KajuException.h"
#include "update/check/Timestamps.h"
#include "update/check/Versions.h"

TEST(Versions, AreNumbersBitForBit) {
  const std::pair<const char*, double> rows[] = {
      // clang-format off
      {"", 0.0},                  {".", 0.4},                {"0", 0.4},                {"1", 1000000.4},
      {"1.2", 1002000.4},         {"1..2", 1000002.4},       {"1.2.3", 1002003.4},      {"1.2.3.4", 1002003.4},
      {"1.2d4", 1002000.0004},    {"1.2a4", 1002000.1004},   {"1.2b4", 1002000.2004},   {"1.2B4", 1002000.2004},
      {"1.2.3d4", 1002003.0004},  {"1.2a0", 1002000.1},      {"1.2b999", 1002000.2999}, {"1.2d1000", 1002000.1},
      {"what\n1.2.3\r\n9", 1002003.4},                       {"1.3.4 (232)", 1003004.4232000001},
      // clang-format on
  };
  for (const auto& [version, number] : rows) EXPECT_EQ(Kaju::VersionToDouble(version), number) << version;
}

TEST(Versions, OthersAreRefused) {
  for (const char* version : {"1.2 b4", "v1.2", "1.2b", " ", "1.2 (3", "1.2 (3) ", "1,2", "１.2", "-1", "1.2\xFF"})
    EXPECT_THROW((void)Kaju::VersionToDouble(version), Kaju::KajuException) << version;
}

TEST(Timestamps, AreMomentsInUTC) {
  const std::pair<const char*, long> rows[] = {{"2027-01-31t14:00:00.999+02:00", 1801396800},
                                               {"2024-02-29T23:59:60z", 1709251200},
                                               {"9999-12-31T23:59:59-00:00", 253402300799}};
  for (const auto& [text, seconds] : rows) {
    EXPECT_EQ(Kaju::MomentOf(text).time_since_epoch().count(), seconds) << text;
  }
  // clang-format off
  const char* others[] = {
      "", "2027-01-31", "2027-01-31T12:00:00", "2027-01-31 12:00:00Z", "2027-02-29T12:00:00Z", "2027-13-01T12:00:00Z",
      "12027-01-31T12:00:00Z", "2027-01-31T12:00:00Z\n", "２027-01-31T12:00:00Z"};
  // clang-format on
  for (const char* text : others) EXPECT_THROW((void)Kaju::MomentOf(text), Kaju::KajuException) << text;
}
