// An arbitrary packet, and an arbitrary document as if its signature were valid.

#include "shell/App.h"
#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "tests/support/OfferRecorder.h"
#include "update/check/UpdateChecker.h"
#include "update/check/UpdatePacket.h"

namespace {

constexpr const char* key =
    "30820120300D06092A864886F70D01010105000382010D00308201080282010100A9D6D1B1C0F1";  // cut off, so never usable

}  // namespace

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  static App app({1, 2, 3});
  const Kaju::UpdatePacket packet = Kaju::SeparatePacket(input);
  Require(Kaju::VerifyPacket(packet, key) != Kaju::PacketVerdict::Genuine, "nothing is genuine without a key");
  Require(packet.SignatureLine.size() + packet.Payload.size() <= input.size(), "the parts lie in the packet");

  const auto presenter = std::make_shared<OfferRecorder>();
  const auto checker = std::make_shared<Kaju::UpdateChecker>(platform.ApplicationDataFolder(), "prefs", presenter);
  checker->AllowedInteraction = Kaju::UpdateChecker::kAllowUpdateWindow;
  checker->TestUpdate(std::string(input));
  const bool hasOffers = checker->Result() >= Kaju::UpdateChecker::ResultType::UpdateAvailable;
  Require(hasOffers == !presenter->Shown.empty(), "offers are shown exactly if the result says that there are some");
  for (const auto& offer : presenter->Shown) {
    static_cast<void>(offer->IsValid());
    const Kaju::UpdateInformation again(offer->ToJSON());
    Require(again.ToJSON() == offer->ToJSON(), "a record that is written is read back the same");
    for (const auto& binary : offer->Binaries()) {
      if (binary) static_cast<void>(binary->HasUsableNames());
    }
  }
}
