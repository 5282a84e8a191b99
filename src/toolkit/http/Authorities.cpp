#include "toolkit/http/Authorities.h"

#include <algorithm>
#include <array>

#include "toolkit/TextFile.h"

namespace toolkit::http {
namespace {

constexpr std::array<std::string_view, 6> usualFiles{
    "etc/ssl/certs/ca-certificates.crt",                 // Debian, Ubuntu, Arch, Alpine
    "etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem",  // Fedora
    "etc/pki/tls/certs/ca-bundle.crt",                   // Fedora, before
    "var/lib/ca-certificates/ca-bundle.pem",             // openSUSE
    "etc/ssl/ca-bundle.pem",                             // openSUSE, before
    "etc/ssl/cert.pem",                                  // Alpine without its package of authorities
};

}  // namespace

Authorities::Authorities(const FolderItem& root) {
  for (const std::string_view file : usualFiles) {
    const auto path = root.Path() / file;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) continue;
    systemFile_ = path.string();
    return;
  }
}

std::string Authorities::All() const {
  return (systemFile_.empty() ? std::string() : ReadFile(FolderItem(systemFile_)) + "\n") + added_;
}

}  // namespace toolkit::http
