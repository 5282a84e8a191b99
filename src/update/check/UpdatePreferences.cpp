#include "update/check/UpdatePreferences.h"

#include <boost/json/serialize.hpp>

#include "toolkit/JSON.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextFile.h"
#include "update/check/Properties.h"

using toolkit::JSONItem;

namespace Kaju {
namespace {

constexpr std::string_view ignoredKey = "IgnoreVersionsPref";

std::vector<std::string> JSONToStringArray(const JSONItem& json) {
  const auto* array = json.if_array();
  if (array == nullptr) throw toolkit::TypeMismatchException("a value is not an array");
  std::vector<std::string> strings(array->size());
  for (std::size_t index = 0; index < strings.size(); ++index) Convert((*array)[index], strings[index]);
  return strings;
}

JSONItem StringArrayToJSON(const std::vector<std::string>& strings) {
  return boost::json::array(strings.begin(), strings.end());
}

}  // namespace

UpdatePreferences LoadPreferences(const toolkit::FolderItem& file) {
  if (!file.Exists()) return {};
  const std::string text = toolkit::ReadFile(file);
  try {
    const auto json = toolkit::ParseJSONItem(text);
    const JSONItem* ignored = RequireObject(*json).if_contains(ignoredKey);
    return {.IgnoreVersionsPref = ignored == nullptr ? std::vector<std::string>() : JSONToStringArray(*ignored)};
  } catch (const toolkit::RuntimeException& exception) {
    throw toolkit::RuntimeException("The preferences in " + file.Path().string() +
                                    " cannot be read: " + exception.Message() + ".");
  }
}

void SavePreferences(const toolkit::FolderItem& file, const UpdatePreferences& preferences) {
  const boost::json::object json{{ignoredKey, StringArrayToJSON(preferences.IgnoreVersionsPref)}};
  toolkit::ReplaceFile(file, boost::json::serialize(json));
}

}  // namespace Kaju
