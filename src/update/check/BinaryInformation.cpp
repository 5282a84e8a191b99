#include "update/check/BinaryInformation.h"

#include <algorithm>
#include <array>

#include "toolkit/Text.h"
#include "update/check/KajuLocale.h"
#include "update/check/Properties.h"

namespace Kaju {
namespace {

using Row = Property<BinaryInformation>;

constexpr std::array properties{
    Row{"Hash", &BinaryInformation::Hash},
    Row{"URL", &BinaryInformation::URL},
    Row{"SHA256", &BinaryInformation::SHA256},
    Row{"Size", &BinaryInformation::Size},
    Row{"ExecutableName", &BinaryInformation::ExecutableName},
};

bool IsPlainName(std::string_view name) {
  const auto isOdd = [](unsigned char byte) { return byte < ' ' || byte == 0x7F || byte == '/' || byte == '\\'; };
  return !toolkit::Trim(name).empty() && name != "." && name != ".." && std::ranges::none_of(name, isOdd);
}

}  // namespace

BinaryInformation::BinaryInformation(bool isExecutableNameRequired, const toolkit::JSONItem& data)
    : BinaryInformation(isExecutableNameRequired) {
  JSONToProperties<BinaryInformation>(data, properties, *this);
}

std::string BinaryInformation::FileName() const {
  const std::size_t slash = URL.rfind('/');
  return toolkit::DecodeURLComponent(slash == std::string::npos ? URL : URL.substr(slash + 1));
}

bool BinaryInformation::HasUsableNames() const {
  const bool hasExecutable = isExecutableNameRequired_ || !ExecutableName.empty();
  return IsPlainName(FileName()) && (!hasExecutable || IsPlainName(ExecutableName));
}

toolkit::JSONItem BinaryInformation::ConvertToJSON() const {
  toolkit::JSONItem json = PropertiesToJSON<BinaryInformation>(properties, *this);
  if (ExecutableName.empty()) json.get_object().erase("ExecutableName");
  return json;
}

bool BinaryInformation::Event_IsInvalid(std::string& reason) const {
  const struct {
    const char* Name;
    bool IsMissing;
  } checks[] = {
      {" Hash", toolkit::Trim(Hash).empty()},
      {" URL", toolkit::Trim(URL).empty()},
      {" Executable Name", isExecutableNameRequired_ && toolkit::Trim(ExecutableName).empty()},
  };
  for (const auto& check : checks) {
    if (!check.IsMissing) continue;
    reason = KajuLocale::kMissingReason() + check.Name;
    return true;
  }
  return false;
}

}  // namespace Kaju
