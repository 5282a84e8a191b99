#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <openssl/evp.h>

/// A publisher's key pair (RSA), for the tour, tests and benchmarks; tools/sign-update is what publishers use. What
/// OpenSSL cannot do throws a std::runtime_error.
class SigningKey {
 public:
  /// Makes a key, which takes long.
  explicit SigningKey(int bits = 2048);

  /// The public half, as the program is configured with it.
  [[nodiscard]] std::string PublicKey() const;
  /// The raw signature of `data` (RSASSA-PKCS1-v1_5 with SHA-256).
  [[nodiscard]] std::string Sign(std::string_view data) const;
  /// A whole packet.
  [[nodiscard]] std::string Packet(std::string_view payload) const;
  /// For OpenSSL.
  [[nodiscard]] EVP_PKEY& Pair() const { return *pair_; }

 private:
  struct Free {
    void operator()(EVP_PKEY* pair) const { EVP_PKEY_free(pair); }
  };
  std::unique_ptr<EVP_PKEY, Free> pair_;
};
