#include "update/check/Timestamps.h"

#include <string>

#include "toolkit/RegEx.h"
#include "toolkit/Text.h"
#include "update/check/KajuException.h"

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

namespace Kaju {
namespace {

/// The number in the two digits at `place`.
int TwoDigits(std::string_view text, std::size_t place) {
  return toolkit::ParseNumber<int>(text.substr(place, 2)).value_or(0);
}

bool HasForm(std::string_view text) {
  static const toolkit::RegEx form(
      R"(\A\d{4}-\d\d-\d\dT(?:[01]\d|2[0-3]):[0-5]\d:(?:[0-5]\d|60)(?:\.\d+)?(?:Z|[+-](?:[01]\d|2[0-3]):[0-5]\d)\z)");
  return form.IsIn(text);
}

/// The offset of the text's time zone from UTC.
minutes OffsetOf(std::string_view text) {
  constexpr std::size_t length = 6;
  const std::string_view end = text.substr(text.size() - length);
  const minutes offset = hours(TwoDigits(end, 1)) + minutes(TwoDigits(end, 4));
  return end[0] == '+' ? offset : end[0] == '-' ? -offset : minutes(0);
}

}  // namespace

std::chrono::sys_seconds MomentOf(std::string_view timestamp) {
  using namespace std::chrono;
  if (HasForm(timestamp)) {
    const int century = TwoDigits(timestamp, 0);
    const year_month_day date(year(100 * century + TwoDigits(timestamp, 2)),
                              month(static_cast<unsigned>(TwoDigits(timestamp, 5))),
                              day(static_cast<unsigned>(TwoDigits(timestamp, 8))));
    const seconds time =
        hours(TwoDigits(timestamp, 11)) + minutes(TwoDigits(timestamp, 14)) + seconds(TwoDigits(timestamp, 17));
    if (date.ok()) return sys_days(date) + time - OffsetOf(timestamp);
  }
  throw KajuException("Date is not properly formatted: " + std::string(timestamp), "Kaju.MomentOf");
}

}  // namespace Kaju
