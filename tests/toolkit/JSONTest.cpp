#include <gtest/gtest.h>

#include "toolkit/JSON.h"
#include "toolkit/RuntimeException.h"

// Whatever a piece ends in the middle of, a number, an escape or a character, the values are those of the whole text.
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
