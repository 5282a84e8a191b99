#include "panel/Times.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace panel {
namespace {

using namespace std::chrono;

// A log of a million lines has a million times; this is ten times as fast as a stream or strftime.
void AppendDigits(std::string& text, std::int64_t number, std::size_t digits) {
  const std::size_t start = text.size();
  text.append(digits, '0');
  for (std::size_t i = start + digits; i > start; number /= 10) text[--i] = static_cast<char>('0' + number % 10);
}

void AppendDate(std::string& text, sys_days day) {
  const year_month_day date(day);
  AppendDigits(text, static_cast<int>(date.year()), 4);
  text += '-';
  AppendDigits(text, static_cast<unsigned>(date.month()), 2);
  text += '-';
  AppendDigits(text, static_cast<unsigned>(date.day()), 2);
}

}  // namespace

std::string ToWords(seconds length) {
  struct Unit {
    seconds Length;
    std::string_view Name;
  };
  constexpr std::array<Unit, 5> units{
      {{weeks(1), "week"}, {days(1), "day"}, {1h, "hour"}, {1min, "minute"}, {1s, "second"}}};
  for (const Unit& unit : units) {
    const auto count = length / unit.Length;
    if (count > 0) return std::to_string(count) + " " + std::string(unit.Name) + (count == 1 ? "" : "s");
  }
  return "0 seconds";
}

std::string ToUtcMinute(Time time) {
  const auto day = floor<days>(time);
  const hh_mm_ss clock(floor<minutes>(time - day));
  std::string text;
  AppendDate(text, day);
  text += ' ';
  AppendDigits(text, clock.hours().count(), 2);
  text += ':';
  AppendDigits(text, clock.minutes().count(), 2);
  return text + " UTC";
}

void AppendTimestamp(std::string& text, Time time) {
  const auto day = floor<days>(time);
  const hh_mm_ss clock(floor<nanoseconds>(time - day));
  AppendDate(text, day);
  text += 'T';
  AppendDigits(text, clock.hours().count(), 2);
  text += ':';
  AppendDigits(text, clock.minutes().count(), 2);
  text += ':';
  AppendDigits(text, clock.seconds().count(), 2);
  text += '.';
  AppendDigits(text, clock.subseconds().count(), 9);
  text += 'Z';
}

}  // namespace panel
