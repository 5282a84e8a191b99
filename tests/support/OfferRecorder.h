#pragma once

#include "update/check/UpdatePresenter.h"

/// Records the offers that it is to show.
struct OfferRecorder final : Kaju::UpdatePresenter {
  Kaju::Offers Shown;
  bool Shows = false;

  [[nodiscard]] bool IsOpen() const override { return Shows; }
  void ChooseUpdate(const std::shared_ptr<Kaju::UpdateChecker>& /*checker*/, Kaju::Offers offers) override {
    Shown.insert(Shown.end(), offers.begin(), offers.end());
  }
};
