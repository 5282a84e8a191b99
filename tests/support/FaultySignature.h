#pragma once

#include <string>
#include <string_view>

#include "signing/SigningKey.h"

/// Ways to make a signature that must not be taken for genuine.
enum class SignatureFault { PSS, WrongDigest, NoDigestNull, TrailingBytes };

/// The raw signature of `data` by that key, with that fault.
[[nodiscard]] std::string FaultySignature(const SigningKey& key, std::string_view data, SignatureFault fault);

/// The publisher whom the tests' program trusts. Making a key takes long.
inline const SigningKey& Publisher() {
  static const SigningKey key;
  return key;
}
