#include "toolkit/JSON.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"

namespace json = boost::json;

namespace toolkit {
namespace {

constexpr std::size_t deepestNesting = 64;

[[noreturn]] void ExplainFailure(std::string_view text, json::error_code error) {
  if (!IsUTF8(text)) throw RuntimeException("the text is not UTF-8");
  if (error == json::error::too_deep) throw RuntimeException("the JSON is nested too deep");
  throw RuntimeException("the text is not JSON (" + error.message() + ")");
}

json::parse_options Options() {
  json::parse_options options;
  options.max_depth = deepestNesting;
  return options;
}

/// Takes what the parser reads and keeps only whether the whole is an object.
struct Ignore {
  using Error = json::error_code;
  static constexpr std::size_t max_object_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_array_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_key_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_string_size = std::numeric_limits<std::size_t>::max();

  bool isObject = false;

  // clang-format off
  static bool on_document_begin(Error&) { return true; }
  static bool on_document_end(Error&) { return true; }
  static bool on_object_begin(Error&) { return true; }
  bool on_object_end(std::size_t, Error&) { return isObject = true; }
  static bool on_array_begin(Error&) { return true; }
  bool on_array_end(std::size_t, Error&) { isObject = false; return true; }
  static bool on_key_part(json::string_view, std::size_t, Error&) { return true; }
  static bool on_key(json::string_view, std::size_t, Error&) { return true; }
  static bool on_string_part(json::string_view, std::size_t, Error&) { return true; }
  static bool on_string(json::string_view, std::size_t, Error&) { return true; }
  static bool on_number_part(json::string_view, Error&) { return true; }
  static bool on_int64(std::int64_t, json::string_view, Error&) { return true; }
  static bool on_uint64(std::uint64_t, json::string_view, Error&) { return true; }
  static bool on_double(double number, json::string_view, Error& error) {
    if (std::isfinite(number)) return true;
    error = json::error::exponent_overflow;  // it could not be written out again
    return false;
  }
  static bool on_bool(bool, Error&) { return true; }
  static bool on_null(Error&) { return true; }
  static bool on_comment_part(json::string_view, Error&) { return true; }
  static bool on_comment(json::string_view, Error&) { return true; }
  // clang-format on
};

/// A text's values in one block of memory: it is built once, read, and dropped as one, without a visit to each value.
struct Tree {
  json::monotonic_resource Memory;
  json::value Root = json::value(json::storage_ptr(&Memory));
};

}  // namespace

void CheckJSON(std::string_view text) {
  json::basic_parser<Ignore> parser(Options());
  json::error_code error;
  const std::size_t used = parser.write_some(false, text.data(), text.size(), error);
  if (!error && used < text.size()) error = json::error::extra_data;
  if (error) ExplainFailure(text, error);
  if (!parser.handler().isObject) throw RuntimeException("the JSON is not an object");
}

Dictionary ParseJSON(std::string_view text) {
  const auto tree = std::make_shared<Tree>();
  json::error_code error;
  tree->Root = json::parse(text, error, &tree->Memory, Options());
  if (error) ExplainFailure(text, error);

  const json::object* object = tree->Root.if_object();
  if (object == nullptr) throw RuntimeException("the JSON is not an object");
  Dictionary members;
  for (const auto& member : *object) {
    members.emplace(member.key(), std::shared_ptr<const json::value>(tree, &member.value()));
  }
  return members;
}

std::string GenerateJSON(const Dictionary& members) {
  std::string text = "{";
  for (const auto& [key, value] : members) {
    if (text.size() > 1) text += ',';
    text += json::serialize(json::string_view(key));
    text += ':';
    value.AppendJSON(text);
  }
  text += '}';
  return text;
}

}  // namespace toolkit
