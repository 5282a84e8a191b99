#define PCRE2_CODE_UNIT_WIDTH 8

#include "toolkit/ListSearch.h"

#include <memory>
#include <pcre2.h>

namespace toolkit {
namespace {

/// A text to look for, compiled once and matched many times.
class CaselessText {
 public:
  explicit CaselessText(std::string_view text) {
    constexpr std::uint32_t options = PCRE2_LITERAL | PCRE2_CASELESS | PCRE2_UTF | PCRE2_MATCH_INVALID_UTF;
    int error = 0;
    PCRE2_SIZE errorOffset = 0;
    code_.reset(pcre2_compile(Units(text), text.size(), options, &error, &errorOffset, nullptr));
    if (!code_) return;
    pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE);  // without it, matching is slower but the same
    result_.reset(pcre2_match_data_create(1, nullptr));
  }

  [[nodiscard]] bool IsIn(std::string_view text) const {
    return code_ && pcre2_match(code_.get(), Units(text), text.size(), 0, 0, result_.get(), nullptr) >= 0;
  }

 private:
  static PCRE2_SPTR Units(std::string_view text) { return reinterpret_cast<PCRE2_SPTR>(text.data()); }

  struct Free {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
  };
  std::unique_ptr<pcre2_code, Free> code_;
  std::unique_ptr<pcre2_match_data, Free> result_;
};

bool RowContains(const Listbox& list, int row, const CaselessText& wanted) {
  for (int column = 0; column < list.ColumnCount(); ++column) {
    if (wanted.IsIn(list.Cell(row, column))) return true;
  }
  return false;
}

}  // namespace

std::vector<int> RowsContaining(const Listbox& list, std::string_view text) {
  std::vector<int> rows;
  if (text.empty()) return rows;
  const CaselessText wanted(text);
  for (int row = 0; row < list.ListCount(); ++row) {
    if (RowContains(list, row, wanted)) rows.push_back(row);
  }
  return rows;
}

}  // namespace toolkit
