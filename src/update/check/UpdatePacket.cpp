#include "update/check/UpdatePacket.h"

#include "toolkit/Cryptography.h"
#include "toolkit/RegEx.h"
#include "toolkit/Text.h"

namespace Kaju {
namespace {

constexpr std::string_view marker = "KAJU ";

}  // namespace

UpdatePacket SeparatePacket(std::string_view data) {
  static const toolkit::RegEx firstLine(R"(\A([^\r\n]*)\R)");
  const auto match = firstLine.Search(data);
  if (!match) return {.SignatureLine = data, .Payload = {}};
  return {.SignatureLine = match->SubExpression(1), .Payload = data.substr(match->SubExpression(0).size())};
}

PacketVerdict VerifyPacket(const UpdatePacket& packet, std::string_view publicKey, const toolkit::StillWanted& wanted) {
  if (!packet.SignatureLine.starts_with(marker)) return PacketVerdict::WrongMarker;
  const auto signature = toolkit::DecodeHex(packet.SignatureLine.substr(marker.size()));
  const bool isGenuine = signature && toolkit::RSAVerifySignature(packet.Payload, *signature, publicKey, wanted);
  return isGenuine ? PacketVerdict::Genuine : PacketVerdict::WrongSignature;
}

}  // namespace Kaju
