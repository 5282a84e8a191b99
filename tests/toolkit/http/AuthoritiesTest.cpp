#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "toolkit/http/Authorities.h"

namespace fs = std::filesystem;
using toolkit::http::Authorities;

TEST(Authorities, AreFoundWhereEachDistributionKeepsThem) {
  const std::pair<const char*, const char*> rows[] = {
      {"Debian, Arch, Alpine", "etc/ssl/certs/ca-certificates.crt"},
      {"Fedora", "etc/pki/tls/certs/ca-bundle.crt"},
      {"Fedora, newer", "etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem"},
      {"openSUSE", "var/lib/ca-certificates/ca-bundle.pem"},
      {"Alpine, bare", "etc/ssl/cert.pem"},
  };
  for (const auto& [system, file] : rows) {
    const toolkit::FolderItem root = toolkit::MakeTemporaryFolder();
    EXPECT_EQ(Authorities(root).SystemFile(), "");
    fs::create_directories((root.Path() / file).parent_path());
    fs::create_directories(root.Path() / "etc/ssl/certs");
    std::ofstream(root.Path() / file) << "theirs\n";
    Authorities authorities(root);
    EXPECT_EQ(authorities.SystemFile(), (root.Path() / file).string()) << system;
    EXPECT_FALSE(authorities.HasAdded());
    authorities.Add("ours");
    EXPECT_THAT(authorities.All(), testing::AllOf(testing::StartsWith("theirs\n"), testing::HasSubstr("\nours\n")));
    fs::remove_all(root.Path());
  }
}
