#pragma once

#include <string_view>

namespace bench {

/// The floor of all reading: the seconds in which Boost.JSON parses `text` in its fastest way, into a monotonic
/// resource. Neither use of the result nor its release is counted.
[[nodiscard]] double SecondsToParse(std::string_view text);

}  // namespace bench
