#include "toolkit/InternetHeaders.h"

#include <algorithm>

#include "toolkit/Text.h"

namespace toolkit {

std::string InternetHeaders::Value(std::string_view name) const {
  const auto field =
      std::ranges::find_if(fields_, [&](const auto& candidate) { return EqualIgnoringCase(candidate.first, name); });
  return field == fields_.end() ? std::string() : field->second;
}

}  // namespace toolkit
