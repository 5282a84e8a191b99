#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <openssl/evp.h>

/// How a signature is made; all but PKCS1 are ones that must not be taken for genuine.
enum class Padding { PKCS1, PSS, WrongDigest, NoDigestNull, TrailingBytes };

/// A publisher's key pair.
class SigningKey {
 public:
  explicit SigningKey(int bits = 2048);

  /// The public half, as the program is configured with it.
  [[nodiscard]] std::string PublicKey() const;
  /// The raw signature of `data`.
  [[nodiscard]] std::string Sign(std::string_view data, Padding padding = Padding::PKCS1) const;
  /// A whole packet.
  [[nodiscard]] std::string Packet(std::string_view payload) const;

 private:
  struct Free {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  };
  std::unique_ptr<EVP_PKEY, Free> key_;
};

/// The publisher whom the tests' program trusts. Making a key takes long.
inline const SigningKey& Publisher() {
  static const SigningKey key;
  return key;
}
