#include "toolkit/JSON.h"

#include <memory>

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

}  // namespace

Dictionary ParseJSON(std::string_view text) {
  json::parse_options options;
  options.max_depth = deepestNesting;
  // One block of memory for the whole tree: it is built once, read, and dropped as one.
  const json::storage_ptr storage = json::make_shared_resource<json::monotonic_resource>();
  json::error_code error;
  json::value tree = json::parse(text, error, storage, options);
  if (error) ExplainFailure(text, error);

  json::object* object = tree.if_object();
  if (object == nullptr) throw RuntimeException("the JSON is not an object");
  Dictionary members;
  for (auto& member : *object) members.emplace(member.key(), std::move(member.value()));
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
