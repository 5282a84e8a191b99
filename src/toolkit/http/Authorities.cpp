#include "toolkit/http/Authorities.h"

#include <algorithm>
#include <array>

#include "toolkit/TextFile.h"

namespace toolkit::http {
namespace {

// Distributions keep the file and the folder up to date with the same tool.
struct Place {
  std::string_view File;
  std::string_view Folder;
};
constexpr std::array<Place, 6> usualPlaces{{
    {"etc/ssl/certs/ca-certificates.crt", "etc/ssl/certs"},  // Debian, Ubuntu, Arch, Alpine
    {"etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem", "etc/pki/ca-trust/extracted/pem/directory-hash"},  // Fedora
    {"etc/pki/tls/certs/ca-bundle.crt", ""},                                   // Fedora, formerly
    {"var/lib/ca-certificates/ca-bundle.pem", "var/lib/ca-certificates/pem"},  // openSUSE
    {"etc/ssl/ca-bundle.pem", ""},                                             // openSUSE, formerly
    {"etc/ssl/cert.pem", ""},  // Alpine without its package of authorities
}};

bool IsHashed(const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::directory_iterator files(folder, error);
  return std::any_of(begin(files), end(files), [](const auto& entry) {
    const std::string name = entry.path().filename();
    constexpr std::string_view first = ".0";
    constexpr std::size_t digits = 8;
    return name.size() == digits + first.size() && name.ends_with(first) &&
           name.find_first_not_of("0123456789abcdef") == digits;
  });
}

}  // namespace

Authorities::Authorities(const FolderItem& root) {
  for (const Place& place : usualPlaces) {
    const auto file = root.Path() / place.File;
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) continue;
    systemFile_ = file.string();
    const auto folder = root.Path() / place.Folder;
    if (!place.Folder.empty() && IsHashed(folder)) systemFolder_ = folder.string();
    return;
  }
}

std::string Authorities::All() const {
  return (systemFile_.empty() ? std::string() : ReadFile(FolderItem(systemFile_)) + "\n") + added_;
}

}  // namespace toolkit::http
