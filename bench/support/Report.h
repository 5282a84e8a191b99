#pragma once

#include <string>

namespace bench {

enum class Unit { Seconds, Bytes, Times };

/// The same work at its least: what a figure is divided by.
struct Floor {
  std::string Name;
  double Value = 0;
};

/// Prints figures, a line each, and remembers whether one misses its limit.
class Report {
 public:
  /// `value` against `floor`, which were measured in the same run. The ratio may be `limit` at most.
  void Ratio(const std::string& subject, Unit unit, double value, const Floor& floor, double limit);
  /// A figure whose limit is a value in its own unit.
  void Value(const std::string& subject, Unit unit, double value, double limit);
  /// As Value, with a floor beside it that sets no limit.
  void Value(const std::string& subject, Unit unit, double value, const Floor& floor, double limit);
  /// Something that helps to read the figures and has no limit.
  void Note(const std::string& subject, const std::string& text);

  /// The exit status of a program that printed these figures: 0 if all are within their limits.
  [[nodiscard]] int Status() const { return status_; }

 private:
  void Print(const std::string& subject, const std::string& text, const std::string& limit, bool isWithin);

  int status_ = 0;
};

/// `value` for people, with three digits that count: "53.2 ms", "107 MB" (a million bytes each).
[[nodiscard]] std::string Readable(Unit unit, double value);

}  // namespace bench
