#pragma once

#include "signing/SigningKey.h"

/// The publisher whom the tests' program trusts. Shared, since generating a key is slow.
inline const SigningKey& Publisher() {
  static const SigningKey key;
  return key;
}
