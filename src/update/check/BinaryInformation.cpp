#include "update/check/BinaryInformation.h"

#include <array>

#include "toolkit/Text.h"
#include "update/check/KajuLocale.h"
#include "update/check/Properties.h"

namespace Kaju {
namespace {

using Row = Property<BinaryInformation>;

constexpr std::array properties{
    Row{"ExecutableName", &BinaryInformation::ExecutableName},
    Row{"Hash", &BinaryInformation::Hash},
    Row{"URL", &BinaryInformation::URL},
};

}  // namespace

BinaryInformation::BinaryInformation(bool isExecutableNameRequired, const toolkit::JSONItem& data)
    : BinaryInformation(isExecutableNameRequired) {
  JSONToProperties<BinaryInformation>(data, properties, *this);
}

std::string BinaryInformation::FileName() const {
  const std::size_t slash = URL.rfind('/');
  return toolkit::DecodeURLComponent(slash == std::string::npos ? URL : URL.substr(slash + 1));
}

bool BinaryInformation::HasUsableFileName() const {
  const std::string name = FileName();
  const bool isEntry = !name.empty() && name != "." && name != "..";
  return isEntry && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

toolkit::JSONItem BinaryInformation::ConvertToJSON() const {
  boost::json::object members{{"Hash", Hash}, {"URL", URL}};
  if (!ExecutableName.empty()) members["ExecutableName"] = ExecutableName;
  return members;
}

bool BinaryInformation::Event_IsInvalid(std::string& reason) const {
  const struct {
    const char* name;
    bool isMissing;
  } checks[] = {
      {" Hash", toolkit::Trim(Hash).empty()},
      {" URL", toolkit::Trim(URL).empty()},
      {" Executable Name", IsExecutableNameRequired && toolkit::Trim(ExecutableName).empty()},
  };
  for (const auto& check : checks) {
    if (!check.isMissing) continue;
    reason = KajuLocale::kMissingReason() + check.name;
    return true;
  }
  return false;
}

}  // namespace Kaju
