#pragma once

#include <memory>
#include <vector>

#include "update/check/UpdateInformation.h"

namespace Kaju {

class UpdateChecker;

using Offers = std::vector<std::shared_ptr<UpdateInformation>>;

/// Shows offers to the user. The checker depends on this interface instead of windows.
class UpdatePresenter {
 public:
  virtual ~UpdatePresenter() = default;

  /// Whether offers are being shown.
  [[nodiscard]] virtual bool IsOpen() const = 0;
  /// Shows offers, in the order of their document, and returns. `checker` may be destroyed while they are shown.
  virtual void ChooseUpdate(const std::shared_ptr<UpdateChecker>& checker, Offers offers) = 0;
};

}  // namespace Kaju
