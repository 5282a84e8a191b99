#include <gtest/gtest.h>

#include "toolkit/JSON.h"
#include "toolkit/RuntimeException.h"
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

// A piece may end within a number, an escape or a character: the values are the same as in one piece.
TEST(JSON, IsReadInPiecesAsIfWhole) {
  constexpr std::size_t piece = 1'000'000;
  const std::string element =
      R"({"k\u00e9y":["ü😀\ud83d\ude80\n",-1.2345678901234567e-5,0.1,18446744073709551615,true,null]})";
  for (std::size_t shift = 0; shift < element.size(); ++shift) {
    std::string text = "[" + std::string(piece - 1 - shift, ' ') + element + "]";
    int asked = 0;
    const auto inPieces = toolkit::ParseJSONItem(text, [&] { return ++asked > 0; });
    EXPECT_EQ(*inPieces, *toolkit::ParseJSONItem(text)) << shift;
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(toolkit::ParseJSONItem(text, [] { return false; }), nullptr);
    text[piece + element.size() - shift - 1] = '"';  // in place of the last brace
    EXPECT_THROW((void)toolkit::ParseJSONItem(text, [] { return true; }), toolkit::RuntimeException);
  }
  const std::string end(piece, '\n');
  EXPECT_NE(toolkit::ParseJSONItem("[]" + end, [] { return true; }), nullptr);
  EXPECT_THROW((void)toolkit::ParseJSONItem("[]" + end + "x", [] { return true; }), toolkit::RuntimeException);
}
