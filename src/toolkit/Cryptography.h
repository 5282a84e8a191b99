#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace toolkit {

/// The MD5 digest (RFC 1321) of data that comes in pieces.
class MD5Digest {
 public:
  MD5Digest();
  MD5Digest(const MD5Digest&) = delete;
  MD5Digest& operator=(const MD5Digest&) = delete;
  ~MD5Digest();

  void Process(std::string_view bytes);
  /// The 16 bytes of the digest. The last call.
  [[nodiscard]] std::string Value();

 private:
  struct Context;
  std::unique_ptr<Context> context_;
};

/// Whether `signature` (raw bytes) is the signature of `data` by the owner of `publicKey`: RSASSA-PKCS1-v1_5 with
/// SHA-256 (RFC 8017). The key is a SubjectPublicKeyInfo (RFC 5280) in DER, as hexadecimal text. Whatever is unusable,
/// the key included, gives false.
[[nodiscard]] bool RSAVerifySignature(std::string_view data, std::string_view signature, std::string_view publicKey);

/// Whether `publicKey`, in the form of RSAVerifySignature(), is an RSA key of at least 2048 bits.
[[nodiscard]] bool IsUsablePublicKey(std::string_view publicKey);

}  // namespace toolkit
