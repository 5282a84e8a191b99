#include "support/JSONFloor.h"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

#include "support/Measure.h"

namespace bench {

double SecondsToParse(std::string_view text) {
  boost::json::monotonic_resource memory;
  const Clock::time_point start = Clock::now();
  const boost::json::value tree = boost::json::parse(text, &memory);
  return SecondsSince(start);
}

}  // namespace bench
