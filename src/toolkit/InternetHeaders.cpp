#include "toolkit/InternetHeaders.h"

#include "toolkit/Text.h"

namespace toolkit {

std::string InternetHeaders::Value(std::string_view name) const {
  std::string values;
  for (const auto& [field, value] : fields_) {
    if (!EqualIgnoringCase(field, name)) continue;
    if (!values.empty()) values += ", ";
    values += value;
  }
  return values;
}

}  // namespace toolkit
