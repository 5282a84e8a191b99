#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "toolkit/JSON.h"

namespace Kaju {

/// A stored property of a record: its name, which is also its key in JSON, and its member.
template <typename Record>
struct Property {
  std::string_view Name;
  std::variant<std::string Record::*, bool Record::*, std::optional<std::string> Record::*,
               std::optional<std::uint64_t> Record::*>
      Member;
};

/// Converts a JSON value to a text, a Boolean or a whole number. To text: numbers in their shortest usual form. To
/// Boolean: a number is false if it is 0, null is false, and the texts "true" and "false" are accepted in either case.
/// To a number: texts of digits are accepted. Throws a toolkit::TypeMismatchException for any other value.
void Convert(const toolkit::JSONItem& value, std::string& text);
void Convert(const toolkit::JSONItem& value, bool& truth);
void Convert(const toolkit::JSONItem& value, std::uint64_t& number);
template <typename Value>
void Convert(const toolkit::JSONItem& value, std::optional<Value>& optional) {
  Convert(value, optional.emplace());
}

/// A property as a JSON value; null if it is not set.
template <typename Value>
toolkit::JSONItem ToJSON(const Value& value) {
  return toolkit::JSONItem(value);
}
template <typename Value>
toolkit::JSONItem ToJSON(const std::optional<Value>& value) {
  return value ? toolkit::JSONItem(*value) : toolkit::JSONItem();
}

/// Sets each property that `data` has a member for. Members that are objects or arrays are skipped. Throws if `data` is
/// not an object or a member cannot be converted.
template <typename Record>
void JSONToProperties(const toolkit::JSONItem& data, std::span<const Property<Record>> properties, Record& record);

/// The properties that are set, as a JSON object in their order.
template <typename Record>
toolkit::JSONItem PropertiesToJSON(std::span<const Property<Record>> properties, const Record& record);

/// `value` as an object. Throws a toolkit::TypeMismatchException if it is not one.
const boost::json::object& RequireObject(const toolkit::JSONItem& value);

template <typename Record>
void JSONToProperties(const toolkit::JSONItem& data, std::span<const Property<Record>> properties, Record& record) {
  for (const auto& given : RequireObject(data)) {
    const auto property = std::ranges::find(properties, std::string_view(given.key()), &Property<Record>::Name);
    if (property == properties.end() || given.value().is_structured()) continue;
    std::visit([&](auto member) { Convert(given.value(), record.*member); }, property->Member);
  }
}

template <typename Record>
toolkit::JSONItem PropertiesToJSON(std::span<const Property<Record>> properties, const Record& record) {
  boost::json::object members;
  for (const Property<Record>& property : properties) {
    toolkit::JSONItem value = std::visit([&](auto member) { return ToJSON(record.*member); }, property.Member);
    if (!value.is_null()) members[property.Name] = std::move(value);
  }
  return members;
}

}  // namespace Kaju
