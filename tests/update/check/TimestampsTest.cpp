#include <gtest/gtest.h>

#include "update/check/KajuException.h"
#include "update/check/Timestamps.h"

TEST(Timestamps, AreMomentsInUTC) {
  const std::pair<const char*, long> rows[] = {{"1970-01-01T00:00:00Z", 0},
                                               {"2027-01-31t14:00:00.999+02:00", 1801396800},
                                               {"2027-01-31T04:30:59-07:30", 1801396859},
                                               {"2024-02-29T23:59:60z", 1709251200},
                                               {"0000-01-01T00:00:00Z", -62167219200},
                                               {"9999-12-31T23:59:59-00:00", 253402300799}};
  for (const auto& [text, seconds] : rows) {
    EXPECT_EQ(Kaju::MomentOf(text).time_since_epoch().count(), seconds) << text;
  }
  // clang-format off
  const char* others[] = {
      "", "2027-01-31", "2027-01-31T12:00:00", "2027-01-31 12:00:00Z", "2027-02-29T12:00:00Z", "2027-13-01T12:00:00Z",
      "2027-01-00T12:00:00Z", "2027-01-31T24:00:00Z", "2027-01-31T12:60:00Z", "2027-01-31T12:00:61Z",
      "2027-01-31T12:00:00.Z", "2027-01-31T12:00:00+0200", "2027-01-31T12:00:00+24:00", "2027-1-31T12:00:00Z",
      "12027-01-31T12:00:00Z", "2027-01-31T12:00:00Z\n", "２027-01-31T12:00:00Z"};
  // clang-format on
  for (const char* text : others) EXPECT_THROW((void)Kaju::MomentOf(text), Kaju::KajuException) << text;
}
