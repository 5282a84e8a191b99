#pragma once

#include <memory>

#include <openssl/evp.h>
#include <openssl/x509.h>

namespace panel {

/// A certificate with its private key, both in memory only.
struct Certificate {
  std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> Key;
  std::unique_ptr<X509, decltype(&X509_free)> X509Certificate;
};

/// Makes a key on the curve P-256 and a certificate that is signed by that key and valid for a year. Throws
/// std::runtime_error if the cryptography library fails.
[[nodiscard]] Certificate MakeSelfSignedCertificate();

}  // namespace panel
