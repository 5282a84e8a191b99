#include "toolkit/JSON.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse_options.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_stack.hpp>

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

/// Builds values from the parser's events.
struct Reader {
  using Error = json::error_code;
  using Text = json::string_view;
  static constexpr std::size_t max_object_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_array_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_key_size = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t max_string_size = std::numeric_limits<std::size_t>::max();

  json::value_stack* Values = nullptr;
  std::string BeginOfNumber;  // if a number is split between two pieces

  bool Push(auto push) {
    push(*Values);
    return true;
  }

  // clang-format off
  static bool on_document_begin(Error&) { return true; }
  static bool on_document_end(Error&) { return true; }
  static bool on_object_begin(Error&) { return true; }
  bool on_object_end(std::size_t size, Error&) { return Push([=](auto& stack) { stack.push_object(size); }); }
  static bool on_array_begin(Error&) { return true; }
  bool on_array_end(std::size_t size, Error&) { return Push([=](auto& stack) { stack.push_array(size); }); }
  bool on_key_part(Text text, std::size_t, Error&) { return Push([=](auto& stack) { stack.push_chars(text); }); }
  bool on_key(Text text, std::size_t, Error&) { return Push([=](auto& stack) { stack.push_key(text); }); }
  bool on_string_part(Text text, std::size_t, Error&) { return Push([=](auto& stack) { stack.push_chars(text); }); }
  bool on_string(Text text, std::size_t, Error&) { return Push([=](auto& stack) { stack.push_string(text); }); }
  bool on_number_part(Text text, Error&) { BeginOfNumber += text; return true; }
  bool on_int64(std::int64_t number, Text, Error&) { BeginOfNumber.clear(); return Push([=](auto& stack) { stack.push_int64(number); }); }
  bool on_uint64(std::uint64_t number, Text, Error&) { BeginOfNumber.clear(); return Push([=](auto& stack) { stack.push_uint64(number); }); }
  bool on_double(double number, Text text, Error& error) {
    const std::string whole = std::exchange(BeginOfNumber, {}).append(text);
    // The parser's own result may be off by a little.
    std::from_chars(whole.data(), whole.data() + whole.size(), number);
    if (std::isfinite(number)) return Push([=](auto& stack) { stack.push_double(number); });
    error = json::error::exponent_overflow;  // it could not be written as JSON again
    return false;
  }
  bool on_bool(bool truth, Error&) { return Push([=](auto& stack) { stack.push_bool(truth); }); }
  bool on_null(Error&) { return Push([=](auto& stack) { stack.push_null(); }); }
  static bool on_comment_part(Text, Error&) { return true; }
  static bool on_comment(Text, Error&) { return true; }
  // clang-format on
};

/// Parses all of `text`. Returns false if `wanted` did.
bool Read(std::string_view text, json::value_stack& values, const StillWanted& wanted) {
  json::basic_parser<Reader> parser(Options());
  parser.handler().Values = &values;
  json::error_code error;
  const std::size_t pieceSize = wanted ? bytesAtOnce : text.size();
  std::size_t place = 0;
  do {
    if (place > 0 && !IsWanted(wanted)) return false;
    const std::string_view piece = text.substr(place, pieceSize);
    place += piece.size();
    const std::size_t used = parser.write_some(place < text.size(), piece.data(), piece.size(), error);
    if (!error && used < piece.size()) error = json::error::extra_data;
    if (error) ExplainFailure(text, error);
  } while (place < text.size());
  return true;
}

/// A text's values in one block of memory, which is freed at once, without a visit to each value.
struct Tree {
  json::monotonic_resource Memory;
  json::value Root = json::value(json::storage_ptr(&Memory));
};

/// nullptr if `wanted` returned false.
std::shared_ptr<const Tree> Parse(std::string_view text, const StillWanted& wanted = {}) {
  const auto tree = std::make_shared<Tree>();
  json::value_stack values;
  values.reset(&tree->Memory);
  if (!Read(text, values, wanted)) return nullptr;
  tree->Root = values.release();
  return tree;
}

}  // namespace

std::shared_ptr<const JSONItem> ParseJSONItem(std::string_view text, const StillWanted& wanted) {
  const auto tree = Parse(text, wanted);
  if (!tree) return nullptr;
  if (!tree->Root.is_structured()) throw RuntimeException("the JSON is neither an object nor an array");
  return {tree, &tree->Root};
}

Dictionary ParseJSON(std::string_view text) {
  const auto tree = Parse(text);
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
