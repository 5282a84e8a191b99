#pragma once

#include <string_view>

#include "toolkit/StillWanted.h"

namespace Kaju {

enum class PacketVerdict { Genuine, WrongMarker, WrongSignature };

/// A signed update document as the server sends it: a first line of "KAJU " and the signature in hexadecimal digits, a
/// line break, and the payload up to the last byte.
struct UpdatePacket {
  /// The whole first line.
  std::string_view SignatureLine;
  /// The signed bytes.
  std::string_view Payload;
};

/// Splits a packet at its first line break. Without one, everything is the first line. The parts refer to `data`.
[[nodiscard]] UpdatePacket SeparatePacket(std::string_view data);

/// Whether the packet was signed by the owner of `publicKey`; see toolkit::RSAVerifySignature(). For any invalid input,
/// including the key, and if `wanted` returns false, the verdict is WrongSignature.
[[nodiscard]] PacketVerdict VerifyPacket(const UpdatePacket& packet, std::string_view publicKey,
                                         const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
