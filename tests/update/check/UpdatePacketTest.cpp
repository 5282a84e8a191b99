#include <gtest/gtest.h>

#include "tests/support/SigningKey.h"
#include "toolkit/Cryptography.h"
#include "toolkit/Text.h"
#include "update/check/UpdatePacket.h"

using Kaju::PacketVerdict;
using namespace std::string_literals;

namespace {

PacketVerdict Verdict(const std::string& packet, const std::string& key) {
  return VerifyPacket(Kaju::SeparatePacket(packet), key);
}

const SigningKey& Publisher() {
  static const SigningKey key;
  return key;
}

const std::string payload = "[{\"Version\":\"2\"}]\n";

}  // namespace

TEST(UpdatePacket, IsGenuineOnlyWithMarkerLineBreakSignatureAndBodyAllRight) {
  const std::string right = toolkit::EncodeHex(Publisher().Sign(payload));
  const std::string others = toolkit::EncodeHex(SigningKey().Sign(payload));
  std::string upper = right;
  for (char& letter : upper) letter = static_cast<char>(std::toupper(letter));
  const struct {
    std::string text;
    bool isRight;
  } markers[] = {{"KAJU ", true}, {"kaju ", false}, {"KAJU_", false}, {"", false}, {"\xEF\xBB\xBFKAJU ", false}},
    breaks[] = {{"\n", true}, {"\r\n", true}, {"\r", true}, {"\u2028", false}, {"", false}, {" \n", false}},
    signatures[] = {{right, true},
                    {upper, true},
                    {"", false},
                    {others, false},
                    {right + "0", false},
                    {right + " ", false},
                    {" " + right, false},
                    {right + "00", false},
                    {right.substr(2), false},
                    {right.substr(0, 510), false},
                    {"zz" + right.substr(2), false},
                    {"0x" + right, false}},
    bodies[] = {{payload, true},          {"", false},
                {payload + "\n", false},  {payload.substr(0, payload.size() - 1), false},
                {" " + payload, false},   {payload + "\0"s, false},
                {"\xFF" + payload, false}};
  for (const auto& marker : markers) {
    for (const auto& lineBreak : breaks) {
      for (const auto& signature : signatures) {
        for (const auto& body : bodies) {
          const std::string packet = marker.text + signature.text + lineBreak.text + body.text;
          const bool allRight = lineBreak.isRight && signature.isRight && body.isRight;
          const PacketVerdict verdict = !marker.isRight ? PacketVerdict::WrongMarker
                                        : allRight      ? PacketVerdict::Genuine
                                                        : PacketVerdict::WrongSignature;
          EXPECT_EQ(Verdict(packet, Publisher().PublicKey()), verdict) << packet;
        }
      }
    }
  }
}

TEST(UpdatePacket, EverySingleByteCounts) {
  const std::string key = Publisher().PublicKey();
  const std::string packet = Publisher().Packet(payload);
  ASSERT_EQ(Verdict(packet, key), PacketVerdict::Genuine);
  const std::size_t caseCount = packet.find('\n');
  for (std::size_t place = 0; place < packet.size(); place += 3) {
    for (const int flip : {1, 0x80}) {
      std::string changed = packet;
      changed[place] = static_cast<char>(changed[place] ^ flip);
      EXPECT_NE(Verdict(changed, key), PacketVerdict::Genuine) << place << " of " << caseCount;
    }
  }
  for (std::size_t size = 0; size < packet.size(); size += 7) {
    EXPECT_NE(Verdict(packet.substr(0, size), key), PacketVerdict::Genuine) << size;
  }
}

TEST(UpdatePacket, AnEmptyPayloadCanBeSigned) {
  EXPECT_EQ(Verdict(Publisher().Packet(""), Publisher().PublicKey()), PacketVerdict::Genuine);
  EXPECT_EQ(Kaju::SeparatePacket("KAJU 00").SignatureLine, "KAJU 00");
}

TEST(UpdatePacket, KeysOfSeveralSizesServeAndUnusableOnesNever) {
  for (const int bits : {1024, 2048, 4096}) {
    const SigningKey key(bits);
    EXPECT_EQ(Verdict(key.Packet(payload), key.PublicKey()), PacketVerdict::Genuine) << bits;
    EXPECT_EQ(toolkit::IsUsablePublicKey(key.PublicKey()), bits >= 2048);
  }
  const std::string key = Publisher().PublicKey();
  for (const std::string& bad : {""s, "0"s, key + "00", key.substr(2), key + " ", "00" + key.substr(2), "xx"s}) {
    EXPECT_EQ(Verdict(Publisher().Packet(payload), bad), PacketVerdict::WrongSignature) << bad;
    EXPECT_FALSE(toolkit::IsUsablePublicKey(bad));
  }
}

TEST(UpdatePacket, OtherPaddingsAreNotTaken) {
  for (const Padding padding :
       {Padding::PKCS1, Padding::PSS, Padding::WrongDigest, Padding::NoDigestNull, Padding::TrailingBytes}) {
    EXPECT_EQ(toolkit::RSAVerifySignature(payload, Publisher().Sign(payload, padding), Publisher().PublicKey()),
              padding == Padding::PKCS1)
        << static_cast<int>(padding);
  }
}
