#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "toolkit/StillWanted.h"
#include "toolkit/Variant.h"

namespace toolkit {

/// Parses `text`, which must be one JSON object (RFC 8259) in strict UTF-8, nested at most 64 levels deep, into its
/// members. Of repeated keys the last one counts.
///
/// Throws a RuntimeException that says what is wrong: not UTF-8, not JSON, nested too deep, not an object.
[[nodiscard]] Dictionary ParseJSON(std::string_view text);

/// A JSON object or array with all its values.
using JSONItem = boost::json::value;

/// Parses the object or array in `text`, under the rules of ParseJSON(). Calls `wanted` after each megabyte and returns
/// nullptr once it returns false.
[[nodiscard]] std::shared_ptr<const JSONItem> ParseJSONItem(std::string_view text, const StillWanted& wanted = {});

/// `members` as one JSON object in UTF-8, without line breaks; "{}" if there are none.
[[nodiscard]] std::string GenerateJSON(const Dictionary& members);

}  // namespace toolkit
