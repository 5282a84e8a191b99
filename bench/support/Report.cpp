#include "support/Report.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <span>

namespace bench {
namespace {

constexpr int subjectWidth = 58;

struct Scale {
  double Factor;
  const char* Name;
};
constexpr std::array<Scale, 4> timeScales{{{1, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}}};
constexpr std::array<Scale, 3> sizeScales{{{1e6, "MB"}, {1e3, "kB"}, {1, "bytes"}}};

std::string Format(const char* format, double value) {
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), format, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string ThreeDigits(double value) {
  return Format(std::abs(value) >= 99.95 ? "%.0f" : std::abs(value) >= 9.995 ? "%.1f" : "%.2f", value);
}

}  // namespace

std::string Readable(Unit unit, double value) {
  if (unit == Unit::Times) return ThreeDigits(value) + " times";
  const std::span<const Scale> scales = unit == Unit::Seconds ? std::span<const Scale>(timeScales) : sizeScales;
  for (const Scale& scale : scales) {
    if (std::abs(value) >= scale.Factor) return ThreeDigits(value / scale.Factor) + " " + scale.Name;
  }
  return ThreeDigits(value / scales.back().Factor) + " " + scales.back().Name;
}

void Report::Ratio(const std::string& subject, Unit unit, double value, const Floor& floor, double limit) {
  const double ratio = value / floor.Value;
  const std::string text =
      Readable(unit, value) + " / " + Readable(unit, floor.Value) + " (" + floor.Name + ") = " + Format("%.2f", ratio);
  Print(subject, text, Format("%g", limit), ratio <= limit);
}

void Report::Value(const std::string& subject, Unit unit, double value, double limit) {
  Print(subject, Readable(unit, value), Readable(unit, limit), value <= limit);
}

void Report::Value(const std::string& subject, Unit unit, double value, const Floor& floor, double limit) {
  const std::string text = Readable(unit, value) + " / " + Readable(unit, floor.Value) + " (" + floor.Name +
                           ") = " + Format("%.2f", value / floor.Value);
  Print(subject, text, Readable(unit, limit), value <= limit);
}

void Report::Note(const std::string& subject, const std::string& text) {
  std::cout << subject << std::string(subject.size() < subjectWidth ? subjectWidth - subject.size() : 1, ' ') << text
            << std::endl;
}

void Report::Print(const std::string& subject, const std::string& text, const std::string& limit, bool isWithin) {
  Note(subject, text + "   (at most " + limit + ")" + (isWithin ? "" : "   MISSED"));
  if (!isWithin) status_ = EXIT_FAILURE;
}

}  // namespace bench
