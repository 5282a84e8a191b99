#include "toolkit/Cryptography.h"

#include <array>
#include <new>
#include <optional>

#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"

namespace toolkit {
namespace {

constexpr int fewestKeyBits = 2048;

struct Free {
  void operator()(EVP_MD* algorithm) const { EVP_MD_free(algorithm); }
  void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};
using Algorithm = std::unique_ptr<EVP_MD, Free>;
using DigestContext = std::unique_ptr<EVP_MD_CTX, Free>;
using Key = std::unique_ptr<EVP_PKEY, Free>;

const unsigned char* Bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

DigestContext MakeContext() {
  DigestContext context(EVP_MD_CTX_new());
  if (!context) throw std::bad_alloc();
  return context;
}

const char* NameOf(Digest::Kind kind) { return kind == Digest::Kind::MD5 ? "MD5" : "SHA-256"; }

/// nullptr if the system disables the algorithm.
Algorithm Fetch(Digest::Kind kind) { return Algorithm(EVP_MD_fetch(nullptr, NameOf(kind), nullptr)); }

/// nullptr if the text is not exactly the DER encoding of an RSA key.
Key ReadPublicKey(std::string_view text) {
  const std::optional<std::string> der = DecodeHex(text);
  if (!der || der->empty()) return nullptr;
  const unsigned char* place = Bytes(*der);
  Key key(d2i_PUBKEY(nullptr, &place, static_cast<long>(der->size())));
  const bool isWhole = key && place == Bytes(*der) + der->size();
  return isWhole && EVP_PKEY_is_a(key.get(), "RSA") == 1 ? std::move(key) : nullptr;
}

}  // namespace

struct Digest::Context {
  DigestContext Running = MakeContext();
};

Digest::Digest(Kind kind) : context_(std::make_unique<Context>()) {
  const Algorithm algorithm = Fetch(kind);
  if (!algorithm || EVP_DigestInit_ex(context_->Running.get(), algorithm.get(), nullptr) != 1) {
    throw RuntimeException(std::string(NameOf(kind)) + " is switched off on this system.");
  }
}

Digest::~Digest() = default;

bool Digest::IsAvailable(Kind kind) { return Fetch(kind) != nullptr; }

void Digest::Process(std::string_view bytes) { EVP_DigestUpdate(context_->Running.get(), bytes.data(), bytes.size()); }

std::string Digest::Value() {
  std::array<unsigned char, EVP_MAX_MD_SIZE> value{};
  unsigned int size = 0;
  EVP_DigestFinal_ex(context_->Running.get(), value.data(), &size);
  return {value.begin(), value.begin() + size};
}

bool RSAVerifySignature(std::string_view data, std::string_view signature, std::string_view publicKey,
                        const StillWanted& wanted) {
  const Key key = ReadPublicKey(publicKey);
  if (!key) return false;
  const DigestContext digest = MakeContext();
  EVP_PKEY_CTX* parameters = nullptr;  // owned by the digest
  if (EVP_DigestVerifyInit(digest.get(), &parameters, EVP_sha256(), nullptr, key.get()) != 1 ||
      EVP_PKEY_CTX_set_rsa_padding(parameters, RSA_PKCS1_PADDING) != 1) {
    return false;
  }
  for (std::size_t place = 0; place < data.size(); place += bytesAtOnce) {
    if (place > 0 && !IsWanted(wanted)) return false;
    const std::string_view piece = data.substr(place, bytesAtOnce);
    if (EVP_DigestVerifyUpdate(digest.get(), piece.data(), piece.size()) != 1) return false;
  }
  return EVP_DigestVerifyFinal(digest.get(), Bytes(signature), signature.size()) == 1;
}

bool IsUsablePublicKey(std::string_view publicKey) {
  const Key key = ReadPublicKey(publicKey);
  return key && EVP_PKEY_get_bits(key.get()) >= fewestKeyBits;
}

}  // namespace toolkit
