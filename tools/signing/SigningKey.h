#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <openssl/evp.h>

/// A publisher's RSA key pair, for the tour, tests and benchmarks; publishers use tools/sign-update. Failures of
/// OpenSSL throw a std::runtime_error.
class SigningKey {
 public:
  /// Generates a key, which is slow.
  explicit SigningKey(int bits = 2048);

  /// The public key in the form of CORVANE_UPDATE_PUBLIC_KEY.
  [[nodiscard]] std::string PublicKey() const;
  /// The raw signature of `data` (RSASSA-PKCS1-v1_5 with SHA-256).
  [[nodiscard]] std::string Sign(std::string_view data) const;
  /// A signed update document.
  [[nodiscard]] std::string Packet(std::string_view payload) const;

 private:
  struct Free {
    void operator()(EVP_PKEY* pair) const { EVP_PKEY_free(pair); }
  };
  std::unique_ptr<EVP_PKEY, Free> pair_;
};
