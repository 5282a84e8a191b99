// A version string from a document.

#include <cmath>

#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "update/check/KajuException.h"
#include "update/check/UpdateInformation.h"
#include "update/check/Versions.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  Kaju::UpdateInformation update;
  update.AppName = "A";
  update.Version = input;
  bool isRead = true;
  try {
    Require(!std::isnan(Kaju::VersionToDouble(input)), "a version is a number");
  } catch (const Kaju::KajuException&) {
    isRead = false;
  }
  Require(isRead || !update.IsValid(), "a valid version can be read");
  Require(update.StageCode() >= 0 && update.StageCode() <= 3, "a stage is one of four");
}
