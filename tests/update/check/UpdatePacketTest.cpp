#include <gtest/gtest.h>

#include "tests/support/FaultySignature.h"
#include "toolkit/Cryptography.h"
#include "toolkit/Text.h"
#include "update/check/UpdatePacket.h"

using Kaju::PacketVerdict;
using namespace std::string_literals;

namespace {

PacketVerdict Verdict(const std::string& packet, const std::string& key) {
  return VerifyPacket(Kaju::SeparatePacket(packet), key);
}

const std::string payload = "[{\"Version\":\"2\"}]\n";

}  // namespace

TEST(UpdatePacket, IsGenuineOnlyIfEveryPartIsRight) {
  const std::string right = toolkit::EncodeHex(Publisher().Sign(payload));
  const std::string others = toolkit::EncodeHex(SigningKey().Sign(payload));
  std::string upper = right;
  for (char& letter : upper) letter = static_cast<char>(std::toupper(letter));
  using Choices = std::vector<std::pair<std::string, bool>>;  // and whether it is right
  // clang-format off
  const Choices markers{{"KAJU ", true}, {"kaju ", false}, {"KAJU_", false}, {"", false}, {"\xEF\xBB\xBFKAJU ", false}};
  const Choices breaks{{"\n", true}, {"\r\n", true}, {"\r", true}, {"\u2028", false}, {"", false}, {" \n", false}};
  const Choices signatures{
      {right, true},            {upper, true},                 {"", false},                     {others, false},
      {right + "0", false},     {right + "00", false},         {right + " ", false},            {" " + right, false},
      {right.substr(2), false}, {right.substr(0, 510), false}, {"zz" + right.substr(2), false}, {"0x" + right, false}};
  const Choices bodies{
      {payload, true},         {"", false},             {payload.substr(0, payload.size() - 1), false},
      {payload + "\n", false}, {" " + payload, false},  {payload + "\0"s, false}, {"\xFF" + payload, false}};
  // clang-format on
  for (const auto& [marker, isMarker] : markers) {
    for (const auto& [lineBreak, isBreak] : breaks) {
      for (const auto& [signature, isSignature] : signatures) {
        for (const auto& [body, isBody] : bodies) {
          const PacketVerdict verdict = !isMarker                          ? PacketVerdict::WrongMarker
                                        : isBreak && isSignature && isBody ? PacketVerdict::Genuine
                                                                           : PacketVerdict::WrongSignature;
          const std::string packet = marker + signature + lineBreak + body;
          EXPECT_EQ(Verdict(packet, Publisher().PublicKey()), verdict) << packet;
        }
      }
    }
  }
}

TEST(UpdatePacket, EverySingleByteCounts) {
  const std::string packet = Publisher().Packet(payload);
  for (std::size_t place = 0; place < packet.size(); place += 3) {
    for (const int flip : {1, 0x80}) {
      std::string changed = packet;
      changed[place] = static_cast<char>(changed[place] ^ flip);
      EXPECT_NE(Verdict(changed, Publisher().PublicKey()), PacketVerdict::Genuine) << place;
    }
    EXPECT_NE(Verdict(packet.substr(0, place), Publisher().PublicKey()), PacketVerdict::Genuine) << place;
  }
}

TEST(UpdatePacket, UnusableKeysServeNever) {
  for (const int bits : {1024, 2048, 4096}) {
    const SigningKey key(bits);
    EXPECT_EQ(Verdict(key.Packet(""), key.PublicKey()), PacketVerdict::Genuine) << bits;
    EXPECT_EQ(toolkit::IsUsablePublicKey(key.PublicKey()), bits >= 2048);
  }
  const std::string key = Publisher().PublicKey();
  for (const std::string& bad : {""s, "0"s, key + "00", key.substr(2), key + " ", "00" + key.substr(2), "xx"s}) {
    EXPECT_EQ(Verdict(Publisher().Packet(payload), bad), PacketVerdict::WrongSignature) << bad;
    EXPECT_FALSE(toolkit::IsUsablePublicKey(bad));
  }
}

TEST(UpdatePacket, OtherPaddingsAreNotTaken) {
  using enum SignatureFault;
  for (const SignatureFault fault : {PSS, WrongDigest, NoDigestNull, TrailingBytes}) {
    const std::string signature = FaultySignature(Publisher(), payload, fault);
    EXPECT_FALSE(toolkit::RSAVerifySignature(payload, signature, Publisher().PublicKey())) << static_cast<int>(fault);
  }
}
