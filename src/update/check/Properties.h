#pragma once

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
  std::variant<std::string Record::*, bool Record::*> Member;
};

/// A JSON value as a text or a truth value. A number converts to its shortest usual text; to Boolean, a number is false
/// if it is 0, null is false, and of texts only "true" and "false" convert, in either case. Throws a
/// toolkit::TypeMismatchException for any other value.
void Convert(const toolkit::JSONItem& value, std::string& text);
void Convert(const toolkit::JSONItem& value, bool& truth);

/// Sets each of the properties that `data` has a member for. A member that is an object or array is passed over. Throws
/// if `data` is no object or a member cannot be converted.
template <typename Record>
void JSONToProperties(const toolkit::JSONItem& data, std::span<const Property<Record>> properties, Record& record);

/// The properties as a JSON object, in their order.
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
    std::visit([&](auto member) { members[property.Name] = record.*member; }, property.Member);
  }
  return members;
}

}  // namespace Kaju
