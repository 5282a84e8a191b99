#include "panel/Certificate.h"

#include <random>
#include <stdexcept>
#include <string>

#include <openssl/ec.h>
#include <openssl/x509v3.h>

namespace panel {
namespace {

constexpr long yearInSeconds = 365L * 24 * 60 * 60;

void Require(bool succeeded) {
  if (!succeeded) throw std::runtime_error("the certificate could not be made");
}

void SetName(X509* x509) {
  const std::string text = "corvane-panel";
  const void* bytes = text.data();
  X509_NAME* name = X509_get_subject_name(x509);
  Require(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, static_cast<const unsigned char*>(bytes),
                                     static_cast<int>(text.size()), -1, 0) == 1);
  Require(X509_set_issuer_name(x509, name) == 1);
}

// Clients on this machine that trust the certificate may use either name.
void SetAddresses(X509* x509) {
  const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> addresses(
      X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1"), X509_EXTENSION_free);
  Require(addresses != nullptr && X509_add_ext(x509, addresses.get(), -1) == 1);
}

// Browsers identify certificates by issuer and number, so each start needs another number.
void SetSerialNumber(X509* x509) {
  Require(ASN1_INTEGER_set_uint64(X509_get_serialNumber(x509), std::random_device()()) == 1);
}

}  // namespace

Certificate MakeSelfSignedCertificate() {
  Certificate made{{EVP_EC_gen("P-256"), EVP_PKEY_free}, {X509_new(), X509_free}};
  Require(made.Key != nullptr && made.X509Certificate != nullptr);
  X509* x509 = made.X509Certificate.get();
  Require(X509_set_version(x509, X509_VERSION_3) == 1);
  SetSerialNumber(x509);
  Require(X509_gmtime_adj(X509_getm_notBefore(x509), 0) != nullptr);
  Require(X509_gmtime_adj(X509_getm_notAfter(x509), yearInSeconds) != nullptr);
  SetName(x509);
  SetAddresses(x509);
  Require(X509_set_pubkey(x509, made.Key.get()) == 1);
  Require(X509_sign(x509, made.Key.get(), EVP_sha256()) != 0);
  return made;
}

}  // namespace panel
