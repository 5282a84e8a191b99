#include <gtest/gtest.h>

#include "panel/EngineLog.h"

namespace panel {
namespace {

std::string Frame(char output, const std::string& text) {
  const auto size = static_cast<std::uint32_t>(text.size());
  std::string frame{output, 0, 0, 0};
  for (const unsigned shift : {24U, 16U, 8U, 0U}) frame += static_cast<char>(size >> shift & 0xffU);
  return frame + text;
}

TEST(EngineLog, LinesComeOutWholeAndInUtf8) {
  struct Row {
    std::string log;
    LogForm form;
    std::vector<std::string> lines;
  };
  const std::string longOne(70'000, 'x');
  const std::string wrong = "\xef\xbf\xbd";
  const std::vector<Row> rows{
      {"", LogForm::Multiplexed, {}},
      {Frame(1, "a\n") + Frame(2, "b\n") + Frame(1, "c\n"), LogForm::Multiplexed, {"a", "b", "c"}},
      {Frame(1, "be") + Frame(2, "err\n") + Frame(1, "gun\nnext"), LogForm::Multiplexed, {"err", "begun", "next"}},
      {Frame(1, "") + Frame(1, "\n\nx\r\n"), LogForm::Multiplexed, {"", "", "x"}},
      {Frame(1, longOne + "\n"), LogForm::Multiplexed, {longOne}},
      {Frame(1, "Zo\xc3") + Frame(1, "\xab\n"), LogForm::Multiplexed, {"Zoë"}},
      {Frame(1, "whole\n") + Frame(1, "x\n").substr(0, 9), LogForm::Multiplexed, {"whole", "(refused)"}},
      {Frame(1, "whole\n") + Frame(1, "x\n").substr(0, 1), LogForm::Multiplexed, {"whole", "(refused)"}},
      {"a\r\nb\r\n", LogForm::Raw, {"a", "b"}},
      {"€𝄞\xc3(\xff", LogForm::Raw, {"€𝄞" + wrong + "(" + wrong}},
      {"\xe2\x82", LogForm::Raw, {wrong + wrong}},
      {"\xc0\xaf\xed\xa0\x80", LogForm::Raw, {wrong + wrong + wrong + wrong + wrong}},
      {"\xe0\x9f\xbf\xf4\x90\x80\x80", LogForm::Raw, {wrong + wrong + wrong + wrong + wrong + wrong + wrong}},
  };
  for (const Row& row : rows) {
    std::vector<std::string> lines;
    try {
      SplitEngineLog(row.log, row.form, [&](std::string_view line) { lines.emplace_back(line); });
    } catch (const Refusal&) {
      lines.emplace_back("(refused)");
    }
    EXPECT_EQ(lines, row.lines) << &row - rows.data();
  }
}

}  // namespace
}  // namespace panel
