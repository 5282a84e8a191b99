#pragma once

#include <string>
#include <string_view>

#include <boost/json/object.hpp>

namespace panel {

/// The member as a text; empty if it is missing or not a string.
[[nodiscard]] inline std::string TextOf(const boost::json::object& members, std::string_view key) {
  const boost::json::value* value = members.if_contains(key);
  if (value == nullptr || !value->is_string()) return {};
  return {value->get_string().begin(), value->get_string().end()};
}

}  // namespace panel
