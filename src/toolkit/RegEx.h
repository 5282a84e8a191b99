#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>

namespace toolkit {

/// The result of a search: the whole match as subexpression 0, then the first four groups of the pattern. The texts
/// refer to the searched subject.
class RegExMatch {
 public:
  /// The match and its first groups; groups that did not participate are empty.
  static constexpr std::size_t mostSubExpressions = 5;
  using SubExpressions = std::array<std::string_view, mostSubExpressions>;

  explicit RegExMatch(const SubExpressions& subExpressions) : subExpressions_(subExpressions) {}

  [[nodiscard]] std::string_view SubExpression(std::size_t index) const { return subExpressions_.at(index); }

 private:
  SubExpressions subExpressions_;
};

/// A regular expression in Perl syntax (PCRE2), compiled once. Case-insensitive unless the pattern says otherwise; a
/// line ends with CR, LF or both. Bytes that are not UTF-8 match nothing.
class RegEx {
 public:
  enum class Meaning { Pattern, PlainText };

  /// Throws a RuntimeException if `pattern` (UTF-8) is not a regular expression.
  explicit RegEx(std::string_view pattern, Meaning meaning = Meaning::Pattern);
  RegEx(const RegEx&) = delete;
  RegEx& operator=(const RegEx&) = delete;
  ~RegEx();

  /// The first match in `subject`, if there is one.
  [[nodiscard]] std::optional<RegExMatch> Search(std::string_view subject) const;
  /// Whether there is a match; cheaper than Search().
  [[nodiscard]] bool IsIn(std::string_view subject) const;

 private:
  struct Compiled;

  [[nodiscard]] int Match(std::string_view subject) const;

  std::unique_ptr<Compiled> compiled_;
};

}  // namespace toolkit
