#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "toolkit/JSON.h"

namespace Kaju {

/// A stored property of a record: its name, which is its key in JSON as well, and where it stands.
template <typename Record>
struct Property {
  std::string_view Name;
  std::variant<std::string Record::*, bool Record::*, std::optional<std::string> Record::*,
               std::optional<std::uint64_t> Record::*>
      Member;
};

/// A JSON value as a text or a truth value. A number converts to its shortest usual text; to Boolean, a number is false
/// if it is 0, null is false, and of texts only "true" and "false" convert, in either case; of those to a number, only
/// such as consist of digits. Throws a toolkit::TypeMismatchException for any other value.
void Convert(const toolkit::JSONItem& value, std::string& text);
void Convert(const toolkit::JSONItem& value, bool& truth);
void Convert(const toolkit::JSONItem& value, std::uint64_t& number);
template <typename Value>
void Convert(const toolkit::JSONItem& value, std::optional<Value>& optional) {
  Convert(value, optional.emplace());
}

/// A property as a JSON value; null if it is not there.
template <typename Value>
toolkit::JSONItem ToJSON(const Value& value) {
  return toolkit::JSONItem(value);
}
template <typename Value>
toolkit::JSONItem ToJSON(const std::optional<Value>& value) {
  return value ? toolkit::JSONItem(*value) : toolkit::JSONItem();
}

/// Sets each of the properties that `data` has a member for. A member that is an object or array is passed over. Throws
/// if `data` is no object or a member cannot be converted.
template <typename Record>
void JSONToProperties(const toolkit::JSONItem& data, std::span<const Property<Record>> properties, Record& record);

/// The properties that are there as a JSON object, in their order.
template <typename Record>
toolkit::JSONItem PropertiesToJSON(std::span<const Property<Record>> properties, const Record& record);

/// `value` as an object. Throws a toolkit::TypeMismatchException if it is anything else.
const boost::json::object& RequireObject(const toolkit::JSONItem& value);

template <typename Record>
void JSONToProperties(const toolkit::JSONItem& data, std::span<const Property<Record>> properties, Record& record) {
  const boost::json::object& members = RequireObject(data);
  for (const Property<Record>& property : properties) {
    const toolkit::JSONItem* value = members.if_contains(property.Name);
    if (value == nullptr || value->is_structured()) continue;
    std::visit([&](auto member) { Convert(*value, record.*member); }, property.Member);
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
