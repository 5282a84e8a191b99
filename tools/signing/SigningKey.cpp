#include "signing/SigningKey.h"

#include <stdexcept>

#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "toolkit/Text.h"

namespace {

void Require(bool worked) {
  if (!worked) throw std::runtime_error("OpenSSL could not make a key or a signature.");
}

}  // namespace

SigningKey::SigningKey(int bits) : pair_(EVP_RSA_gen(static_cast<unsigned>(bits))) { Require(pair_ != nullptr); }

std::string SigningKey::PublicKey() const {
  std::string der(static_cast<std::size_t>(i2d_PUBKEY(pair_.get(), nullptr)), '\0');
  auto* end = reinterpret_cast<unsigned char*>(der.data());
  Require(i2d_PUBKEY(pair_.get(), &end) > 0);
  return toolkit::EncodeHex(der);
}

std::string SigningKey::Sign(std::string_view data) const {
  auto size = static_cast<std::size_t>(EVP_PKEY_get_size(pair_.get()));
  std::string signature(size, '\0');
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  Require(EVP_DigestSignInit(context.get(), nullptr, EVP_sha256(), nullptr, pair_.get()) == 1 &&
          EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &size,
                         reinterpret_cast<const unsigned char*>(data.data()), data.size()) == 1);
  return signature;
}

std::string SigningKey::Packet(std::string_view payload) const {
  return "KAJU " + toolkit::EncodeHex(Sign(payload)).append("\n").append(payload);
}
