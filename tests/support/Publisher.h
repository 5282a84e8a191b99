#pragma once

#include "signing/SigningKey.h"

/// The publisher whom the tests' program trusts. Making a key takes long.
inline const SigningKey& Publisher() {
  static const SigningKey key;
  return key;
}
