#pragma once

#include <chrono>
#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include <boost/json/value.hpp>

namespace toolkit {

/// A point in time, in UTC.
using Date = std::chrono::system_clock::time_point;

/// A dynamic value: nil, a Boolean, a number, a text, an object or array of such values, or a Date.
class Variant {
 public:
  Variant() = default;
  Variant(boost::json::value value) : value_(std::make_shared<const boost::json::value>(std::move(value))) {}
  /// A part of a larger value, which lives as long as `part` or a copy of it.
  Variant(std::shared_ptr<const boost::json::value> part) : value_(std::move(part)) {}
  Variant(Date date) : value_(date) {}

  [[nodiscard]] bool IsNil() const;
  /// Whether the value is a text or a number.
  [[nodiscard]] bool IsTextOrNumber() const;
  /// The object inside, or nullptr if the value is something else. Valid as long as this value.
  [[nodiscard]] const boost::json::object* Object() const;
  /// The value as a text, as by ToText(); a Date in ISO 8601, as in "2026-11-22T20:15:00Z".
  [[nodiscard]] std::string Text() const;
  /// Appends the value to `text` as JSON (RFC 8259). A Date becomes a string, as by Text().
  void AppendJSON(std::string& text) const;

 private:
  [[nodiscard]] const boost::json::value* JSON() const;

  std::variant<std::shared_ptr<const boost::json::value>, Date> value_;
};

using Dictionary = std::map<std::string, Variant, std::less<>>;

/// A JSON value as a text for the user: a string unchanged, null as the empty text, a number in its shortest usual form
/// ("8", "12.5"), "true" or "false", and an object or array as JSON.
[[nodiscard]] std::string ToText(const boost::json::value& value);

/// Like ToText(), but without a copy if `value` is a string: the result refers to it or to `buffer`.
[[nodiscard]] std::string_view ToText(const boost::json::value& value, std::string& buffer);

}  // namespace toolkit
