#include "update/check/Properties.h"

#include <cmath>

#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"
#include "toolkit/Variant.h"

using toolkit::JSONItem;
using toolkit::TypeMismatchException;

namespace Kaju {

void Convert(const JSONItem& value, std::string& text) {
  if (const auto* string = value.if_string()) {
    text.assign(string->data(), string->size());
  } else if (value.is_structured() || (value.is_double() && !std::isfinite(value.get_double()))) {
    throw TypeMismatchException("a value cannot be converted to a text");
  } else {
    text = toolkit::ToText(value);
  }
}

void Convert(const JSONItem& value, bool& truth) {
  if (value.is_bool() || value.is_null()) {
    truth = value.is_bool() && value.get_bool();
  } else if (value.is_number()) {
    truth = value.to_number<double>() != 0.0;
  } else if (const auto* string = value.if_string(); string != nullptr && toolkit::EqualIgnoringCase(*string, "true")) {
    truth = true;
  } else if (string != nullptr && toolkit::EqualIgnoringCase(*string, "false")) {
    truth = false;
  } else {
    throw TypeMismatchException("a value cannot be converted to true or false");
  }
}

void Convert(const JSONItem& value, std::uint64_t& number) {
  boost::json::error_code failure;
  const auto* string = value.if_string();
  if (string == nullptr) {
    number = value.to_number<std::uint64_t>(failure);
  } else {
    const auto read = toolkit::ParseNumber<std::uint64_t>(*string);
    if (!read) failure = boost::json::error::not_number;
    number = read.value_or(0);
  }
  if (failure) throw TypeMismatchException("a value cannot be converted to a whole number");
}

const boost::json::object& RequireObject(const JSONItem& value) {
  const auto* object = value.if_object();
  if (object == nullptr) throw TypeMismatchException("a value is not an object");
  return *object;
}

}  // namespace Kaju
