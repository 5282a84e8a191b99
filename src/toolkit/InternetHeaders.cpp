#include "toolkit/InternetHeaders.h"

#include "toolkit/Text.h"

namespace toolkit {

std::string InternetHeaders::Value(std::string_view name) const {
  std::string values;
  const auto isWanted = IsNamed(name);
  for (const auto& field : fields_) {
    if (!isWanted(field)) continue;
    if (!values.empty()) values += ", ";
    values += field.second;
  }
  return values;
}

}  // namespace toolkit
