#pragma once

#include <string_view>

#include "toolkit/StillWanted.h"

namespace Kaju {

enum class PacketVerdict { Genuine, WrongMarker, WrongSignature };

/// A signed update document as it comes from the server: a first line of "KAJU " and the signature in hexadecimal text,
/// a line break, and the payload up to the last byte.
struct UpdatePacket {
  /// The whole first line.
  std::string_view SignatureLine;
  /// What is signed, byte for byte.
  std::string_view Payload;
};

/// Splits a packet at its first line break. Without one, all of it is the first line. The parts refer to `data`.
[[nodiscard]] UpdatePacket SeparatePacket(std::string_view data);

/// Whether the packet was signed by the owner of `publicKey`; see toolkit::RSAVerifySignature(). Anything that cannot
/// be used, the key included, makes the signature a wrong one, and so does an answer that is no longer wanted.
[[nodiscard]] PacketVerdict VerifyPacket(const UpdatePacket& packet, std::string_view publicKey,
                                         const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
