#pragma once

#include <utility>

#include "update/check/UpdatePresenter.h"
#include "update/install/KajuUpdateWindow.h"

namespace Kaju {

/// Shows offers in the update window, which is created on demand.
class UpdateWindowPresenter final : public UpdatePresenter {
 public:
  [[nodiscard]] bool IsOpen() const override { return KajuUpdateWindow::IsOpen(); }
  void ChooseUpdate(const std::shared_ptr<UpdateChecker>& checker, Offers offers) override {
    KajuUpdateWindow::Shared()->ChooseUpdate(checker, std::move(offers));
  }
};

}  // namespace Kaju
