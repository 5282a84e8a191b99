#include <gtest/gtest.h>

#include "tests/support/Publisher.h"
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
  for (const std::string& taken : {"KAJU " + right + "\n", "KAJU " + upper + "\r\n", "KAJU " + right + "\r"})
    EXPECT_EQ(Verdict(taken + payload, Publisher().PublicKey()), PacketVerdict::Genuine) << taken;
  for (const std::string& marker : {"kaju "s, "KAJU_"s, ""s, "\xEF\xBB\xBFKAJU "s})
    EXPECT_EQ(Verdict(marker + right + "\n" + payload, Publisher().PublicKey()), PacketVerdict::WrongMarker) << marker;
  const std::string start = "KAJU " + right;
  for (const std::string& refused :
       {"KAJU \n" + payload, "KAJU " + others + "\n" + payload, start + "0\n" + payload, start + "00\n" + payload,
        start + " \n" + payload, "KAJU  " + right + "\n" + payload, "KAJU " + right.substr(0, 510) + "\n" + payload,
        "KAJU zz" + right.substr(2) + "\n" + payload, "KAJU 0x" + right + "\n" + payload, start + "\u2028" + payload,
        start + payload, start + "\n", start + "\n" + payload + "\n", start + "\n " + payload,
        start + "\n" + payload + "\0"s, start + "\n\xFF" + payload})
    EXPECT_EQ(Verdict(refused, Publisher().PublicKey()), PacketVerdict::WrongSignature) << refused;
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
