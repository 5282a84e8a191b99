#include "tests/support/FaultySignature.h"

#include <memory>
#include <stdexcept>

#include <openssl/rsa.h>
#include <openssl/sha.h>

#include "toolkit/Text.h"

namespace {

const unsigned char* Bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

void Require(bool worked) {
  if (!worked) throw std::runtime_error("OpenSSL could not make a signature.");
}

/// What PKCS #1 v1.5 signs, with a header or a tail that a strict reader does not accept.
std::string EncodedMessage(std::string_view data, SignatureFault fault, std::size_t size) {
  std::string digest(SHA256_DIGEST_LENGTH, '\0');
  SHA256(Bytes(data), data.size(), reinterpret_cast<unsigned char*>(digest.data()));
  const bool hasNull = fault != SignatureFault::NoDigestNull;
  const std::string info = *toolkit::DecodeHex(hasNull ? "3031300d060960864801650304020105000420"  //
                                                       : "302f300b06096086480165030402010420") +
                           digest + std::string(fault == SignatureFault::TrailingBytes ? 16 : 0, 'x');
  return std::string("\0\1", 2) + std::string(size - info.size() - 3, '\xFF') + '\0' + info;
}

}  // namespace

std::string FaultySignature(const SigningKey& key, std::string_view data, SignatureFault fault) {
  auto size = static_cast<std::size_t>(EVP_PKEY_get_size(&key.Pair()));
  std::string signature(size, '\0');
  auto* const out = reinterpret_cast<unsigned char*>(signature.data());
  if (fault == SignatureFault::NoDigestNull || fault == SignatureFault::TrailingBytes) {
    const std::string message = EncodedMessage(data, fault, size);
    const std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)> raw(EVP_PKEY_CTX_new(&key.Pair(), nullptr),
                                                                          EVP_PKEY_CTX_free);
    Require(EVP_PKEY_sign_init(raw.get()) == 1 && EVP_PKEY_CTX_set_rsa_padding(raw.get(), RSA_NO_PADDING) == 1 &&
            EVP_PKEY_sign(raw.get(), out, &size, Bytes(message), message.size()) == 1);
    return signature;
  }
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  EVP_PKEY_CTX* parameters = nullptr;
  const EVP_MD* digest = fault == SignatureFault::WrongDigest ? EVP_sha1() : EVP_sha256();
  Require(EVP_DigestSignInit(context.get(), &parameters, digest, nullptr, &key.Pair()) == 1);
  if (fault == SignatureFault::PSS) Require(EVP_PKEY_CTX_set_rsa_padding(parameters, RSA_PKCS1_PSS_PADDING) == 1);
  Require(EVP_DigestSign(context.get(), out, &size, Bytes(data), data.size()) == 1);
  return signature;
}
