#pragma once

#include <string>
#include <typeinfo>

#include "toolkit/JSON.h"
#include "update/check/KajuException.h"

namespace Kaju {

/// A record of an update document, which can be converted back to JSON and validated.
class Information {
 public:
  virtual ~Information() = default;

  [[nodiscard]] virtual toolkit::JSONItem ConvertToJSON() const = 0;
  [[nodiscard]] toolkit::JSONItem ToJSON() const { return ConvertToJSON(); }

  /// Validates the record.
  [[nodiscard]] bool IsValid() const {
    invalidReason_.clear();
    return !Event_IsInvalid(invalidReason_);
  }
  /// The result of the last validation; empty if the record was valid or never validated.
  [[nodiscard]] const std::string& InvalidReason() const { return invalidReason_; }

 protected:
  Information() = default;
  Information(const Information&) = default;
  Information& operator=(const Information&) = default;

  /// Returns whether the record is invalid; `reason` says why.
  virtual bool Event_IsInvalid(std::string& reason) const = 0;

  /// Casts `other` to the type of the record that copies it. Throws a KajuException if it has another type.
  template <typename Record>
  static const Record& RequireLike(const Information& other) {
    if (typeid(other) == typeid(Record)) return static_cast<const Record&>(other);
    throw KajuException("Must clone from like types", "Kaju.Information.Constructor");
  }

 private:
  mutable std::string invalidReason_;
};

}  // namespace Kaju
