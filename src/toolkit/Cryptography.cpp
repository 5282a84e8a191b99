#include "toolkit/Cryptography.h"

#include <array>
#include <new>
#include <optional>

#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "toolkit/Text.h"

namespace toolkit {
namespace {

constexpr int fewestKeyBits = 2048;

struct Free {
  void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};
using Digest = std::unique_ptr<EVP_MD_CTX, Free>;
using Key = std::unique_ptr<EVP_PKEY, Free>;

const unsigned char* Bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

Digest MakeDigest() {
  Digest digest(EVP_MD_CTX_new());
  if (!digest) throw std::bad_alloc();
  return digest;
}

/// The key, or nothing if the text is not the whole DER form of an RSA key.
Key ReadPublicKey(std::string_view text) {
  const std::optional<std::string> der = DecodeHex(text);
  if (!der || der->empty()) return nullptr;
  const unsigned char* place = Bytes(*der);
  Key key(d2i_PUBKEY(nullptr, &place, static_cast<long>(der->size())));
  const bool isWhole = key && place == Bytes(*der) + der->size();
  return isWhole && EVP_PKEY_is_a(key.get(), "RSA") == 1 ? std::move(key) : nullptr;
}

}  // namespace

struct MD5Digest::Context {
  Digest Running = MakeDigest();
};

MD5Digest::MD5Digest() : context_(std::make_unique<Context>()) {
  EVP_DigestInit_ex(context_->Running.get(), EVP_md5(), nullptr);
}

MD5Digest::~MD5Digest() = default;

void MD5Digest::Process(std::string_view bytes) {
  EVP_DigestUpdate(context_->Running.get(), bytes.data(), bytes.size());
}

std::string MD5Digest::Value() {
  std::array<unsigned char, EVP_MAX_MD_SIZE> value{};
  unsigned int size = 0;
  EVP_DigestFinal_ex(context_->Running.get(), value.data(), &size);
  return {value.begin(), value.begin() + size};
}

bool RSAVerifySignature(std::string_view data, std::string_view signature, std::string_view publicKey) {
  const Key key = ReadPublicKey(publicKey);
  if (!key) return false;
  const Digest digest = MakeDigest();
  EVP_PKEY_CTX* parameters = nullptr;  // belongs to the digest
  return EVP_DigestVerifyInit(digest.get(), &parameters, EVP_sha256(), nullptr, key.get()) == 1 &&
         EVP_PKEY_CTX_set_rsa_padding(parameters, RSA_PKCS1_PADDING) == 1 &&
         EVP_DigestVerify(digest.get(), Bytes(signature), signature.size(), Bytes(data), data.size()) == 1;
}

bool IsUsablePublicKey(std::string_view publicKey) {
  const Key key = ReadPublicKey(publicKey);
  return key && EVP_PKEY_get_bits(key.get()) >= fewestKeyBits;
}

}  // namespace toolkit
