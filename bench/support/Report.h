#pragma once

#include <string>

namespace bench {

enum class Unit { Seconds, Bytes, Times };

/// The least that the same work takes: what a figure is divided by.
struct Floor {
  std::string Name;
  double Value = 0;
};

/// Prints figures, a line each, and remembers whether one misses its limit.
class Report {
 public:
  /// `value` divided by `floor`, measured in the same run. The ratio may be `limit` at most.
  void Ratio(const std::string& subject, Unit unit, double value, const Floor& floor, double limit);
  /// A figure whose limit is a value in its own unit.
  void Value(const std::string& subject, Unit unit, double value, double limit);
  /// As Value(), and also prints a floor, which sets no limit.
  void Value(const std::string& subject, Unit unit, double value, const Floor& floor, double limit);
  /// Additional information without a limit.
  void Note(const std::string& subject, const std::string& text);

  /// The exit status of a program that printed these figures: 0 if all are within their limits.
  [[nodiscard]] int Status() const { return status_; }

 private:
  void Print(const std::string& subject, const std::string& text, const std::string& limit, bool isWithin);

  int status_ = 0;
};

/// `value` with three significant digits and its unit: "53.2 ms", "107 MB" (of a million bytes each).
[[nodiscard]] std::string Readable(Unit unit, double value);

}  // namespace bench
