#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/http/Authorities.h"

namespace fs = std::filesystem;
using toolkit::http::Authorities;

TEST(Authorities, AreFoundInEachDistribution) {
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"Debian, Arch, Alpine", "etc/ssl/certs/ca-certificates.crt", "etc/ssl/certs"},
      {"Fedora", "etc/pki/tls/certs/ca-bundle.crt", ""},
      {"Fedora, newer", "etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem",
       "etc/pki/ca-trust/extracted/pem/directory-hash"},
      {"openSUSE", "var/lib/ca-certificates/ca-bundle.pem", "var/lib/ca-certificates/pem"},
  };
  const HandPlatform platform;
  for (const auto& [system, file, folder] : rows) {
    SCOPED_TRACE(system);
    const toolkit::FolderItem folderOfAll = toolkit::MakeTemporaryFolder();
    const fs::path& root = folderOfAll.Path();
    EXPECT_EQ(Authorities(folderOfAll).SystemFile(), "");
    for (const fs::path& parent : {(root / file).parent_path(), root / "etc/ssl/certs", root / folder})
      fs::create_directories(parent);
    std::ofstream(root / file) << "theirs\n";
    std::ofstream(root / folder / "theirs-by-name.0") << "theirs\n";
    Authorities authorities(folderOfAll);
    EXPECT_EQ(authorities.SystemFile(), (root / file).string());
    EXPECT_EQ(authorities.SystemFolder(), "") << "it is not by hash";
    std::ofstream(root / folder / "0a1b2c3d.0") << "theirs\n";
    EXPECT_EQ(Authorities(folderOfAll).SystemFolder(), folder.empty() ? "" : (root / folder).string());
    authorities.Add("ours");
    EXPECT_THAT(authorities.All(), testing::AllOf(testing::StartsWith("theirs\n"), testing::HasSubstr("\nours\n")));
    fs::remove_all(root);
  }
}
