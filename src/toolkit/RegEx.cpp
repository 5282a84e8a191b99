#define PCRE2_CODE_UNIT_WIDTH 8

#include "toolkit/RegEx.h"

#include <algorithm>
#include <array>
#include <pcre2.h>
#include <string>

#include "toolkit/RuntimeException.h"

namespace toolkit {
namespace {

struct Free {
  void operator()(pcre2_code* code) const { pcre2_code_free(code); }
  void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
  void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
};

PCRE2_SPTR Units(std::string_view text) { return reinterpret_cast<PCRE2_SPTR>(text.data()); }

std::unique_ptr<pcre2_code, Free> Compile(std::string_view pattern, RegEx::Meaning meaning) {
  const std::unique_ptr<pcre2_compile_context, Free> context(pcre2_compile_context_create(nullptr));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  const std::uint32_t literal = meaning == RegEx::Meaning::PlainText ? PCRE2_LITERAL : 0;
  const std::uint32_t options = literal | PCRE2_CASELESS | PCRE2_UTF | PCRE2_MATCH_INVALID_UTF;
  int error = 0;
  PCRE2_SIZE place = 0;
  std::unique_ptr<pcre2_code, Free> code(
      pcre2_compile(Units(pattern), pattern.size(), options, &error, &place, context.get()));
  if (code) return code;
  std::array<PCRE2_UCHAR, 256> reason{};
  pcre2_get_error_message(error, reason.data(), reason.size());
  throw RuntimeException(std::string("The pattern cannot be searched for: ") +
                         reinterpret_cast<const char*>(reason.data()));
}

}  // namespace

struct RegEx::Compiled {
  std::unique_ptr<pcre2_code, Free> Code;
  std::unique_ptr<pcre2_match_data, Free> Result;
};

RegEx::RegEx(std::string_view pattern, Meaning meaning) : compiled_(std::make_unique<Compiled>()) {
  compiled_->Code = Compile(pattern, meaning);
  pcre2_jit_compile(compiled_->Code.get(), PCRE2_JIT_COMPLETE);  // without it, matching is slower but the same
  compiled_->Result.reset(pcre2_match_data_create_from_pattern(compiled_->Code.get(), nullptr));
}

RegEx::~RegEx() = default;

std::optional<RegExMatch> RegEx::Search(std::string_view subject) const {
  const int count = Match(subject);
  if (count <= 0) return std::nullopt;
  const PCRE2_SIZE* places = pcre2_get_ovector_pointer(compiled_->Result.get());
  RegExMatch::SubExpressions found;
  for (std::size_t index = 0; index < std::min(found.size(), static_cast<std::size_t>(count)); ++index) {
    const PCRE2_SIZE start = places[2 * index];
    if (start != PCRE2_UNSET) found[index] = subject.substr(start, places[2 * index + 1] - start);
  }
  return RegExMatch(found);
}

bool RegEx::IsIn(std::string_view subject) const { return Match(subject) > 0; }

int RegEx::Match(std::string_view subject) const {
  return pcre2_match(compiled_->Code.get(), Units(subject), subject.size(), 0, 0, compiled_->Result.get(), nullptr);
}

}  // namespace toolkit
