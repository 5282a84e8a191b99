#pragma once

#include <string_view>

namespace bench {

/// The floor of all reading: seconds in which Boost.JSON parses `text` in the quickest way it has, into one block of
/// memory that is dropped as a whole, without looking at the result. The dropping is not counted.
[[nodiscard]] double SecondsToParse(std::string_view text);

}  // namespace bench
