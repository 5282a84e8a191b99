#include <gtest/gtest.h>

#include "toolkit/Text.h"

using namespace std::string_literals;

TEST(Text, IsUTF8OnlyIfWellFormed) {
  // clang-format off
  const std::string wellFormed[] = {
      "", "a\0b\n"s, "\x7F\xC2\x80", "\xDF\xBF\xE0\xA0\x80", "\xED\x9F\xBF\xEE\x80\x80",
      "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", "שלום 🛰️"};
  // Overlong forms, surrogates, beyond Unicode, no start, cut off, wrong inside, Latin 1.
  const std::string broken[] = {
      "\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
      "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x9B", "\xE2\x82\x41", "\xF0\x9F\x41\x80",
      "caf\xE9 au lait"};
  // clang-format on
  for (const auto& bytes : wellFormed) EXPECT_TRUE(toolkit::IsUTF8("a" + bytes)) << testing::PrintToString(bytes);
  for (const auto& bytes : broken) EXPECT_FALSE(toolkit::IsUTF8("a" + bytes)) << testing::PrintToString(bytes);
}
