#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "toolkit/StillWanted.h"

namespace toolkit {

/// The digest of data that arrives in pieces: MD5 (RFC 1321) or SHA-256 (FIPS 180-4).
class Digest {
 public:
  enum class Kind { MD5, SHA256 };

  /// Throws a RuntimeException if the digest is not available.
  explicit Digest(Kind kind);
  Digest(const Digest&) = delete;
  Digest& operator=(const Digest&) = delete;
  ~Digest();

  /// Whether the system provides the digest. Some disable MD5.
  [[nodiscard]] static bool IsAvailable(Kind kind);
  void Process(std::string_view bytes);
  /// The 16 or 32 bytes of the digest. No other call may follow.
  [[nodiscard]] std::string Value();

 private:
  struct Context;
  std::unique_ptr<Context> context_;
};

/// Whether `signature` (raw bytes) is the signature of `data` by the owner of `publicKey`: RSASSA-PKCS1-v1_5 with
/// SHA-256 (RFC 8017). The key is a SubjectPublicKeyInfo (RFC 5280) in DER, as hexadecimal text. False for any invalid
/// input, including the key. Calls `wanted` after each megabyte and returns false once it returns false.
[[nodiscard]] bool RSAVerifySignature(std::string_view data, std::string_view signature, std::string_view publicKey,
                                      const StillWanted& wanted = {});

/// Whether `publicKey`, in the form of RSAVerifySignature(), is an RSA key of at least 2048 bits.
[[nodiscard]] bool IsUsablePublicKey(std::string_view publicKey);

}  // namespace toolkit
