#include "toolkit/Variant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ctime>

#include <boost/json/serialize.hpp>
#include <boost/json/serializer.hpp>

namespace json = boost::json;

namespace toolkit {
namespace {

std::string ShortestForm(auto number, auto... format) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, format...).ptr;
  return {digits.data(), end};
}

// The shortest form may be 1e+05. Like JSON writers, use exponents only outside this range.
std::chars_format UsualFormat(double number) {
  const double size = std::abs(number);
  return size == 0 || (size >= 1e-6 && size < 1e21) ? std::chars_format::fixed : std::chars_format::scientific;
}

std::string ISO8601(Date date) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(date);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return {text.data(), length};
}

}  // namespace

// nullptr if the value is a Date.
const json::value* Variant::JSON() const {
  static const json::value nil;
  const auto* value = std::get_if<std::shared_ptr<const json::value>>(&value_);
  if (value == nullptr) return nullptr;
  return *value == nullptr ? &nil : value->get();
}

bool Variant::IsNil() const {
  const json::value* value = JSON();
  return value != nullptr && value->is_null();
}

bool Variant::IsTextOrNumber() const {
  const json::value* value = JSON();
  return value != nullptr && (value->is_string() || value->is_number());
}

const json::object* Variant::Object() const {
  const json::value* value = JSON();
  return value == nullptr ? nullptr : value->if_object();
}

std::string Variant::Text() const {
  if (const auto* date = std::get_if<Date>(&value_)) return ISO8601(*date);
  return ToText(*JSON());
}

void Variant::AppendJSON(std::string& text) const {
  if (const auto* date = std::get_if<Date>(&value_)) {
    text += '"' + ISO8601(*date) + '"';
    return;
  }
  json::serializer serializer;
  serializer.reset(JSON());
  std::array<char, 1024> part{};  // initialised on each call, and most values are short
  while (!serializer.done()) text += serializer.read(part.data(), part.size());
}

std::string ToText(const json::value& value) {
  switch (value.kind()) {
    case json::kind::null:
      return {};
    case json::kind::string:
      return std::string(value.get_string());
    case json::kind::int64:
      return ShortestForm(value.get_int64());
    case json::kind::uint64:
      return ShortestForm(value.get_uint64());
    case json::kind::double_:
      return ShortestForm(value.get_double(), UsualFormat(value.get_double()));
    default:
      return json::serialize(value);
  }
}

std::string_view ToText(const json::value& value, std::string& buffer) {
  if (const auto* text = value.if_string()) return *text;
  buffer = ToText(value);
  return buffer;
}

}  // namespace toolkit
