#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/http/Authorities.h"

namespace fs = std::filesystem;
using toolkit::http::Authorities;

TEST(Authorities, AreFoundWhereEachDistributionKeepsThem) {
  struct Row {
    const char* System;
    const char* File;
    const char* Folder;
  };
  const Row rows[] = {
      {"Debian, Arch, Alpine", "etc/ssl/certs/ca-certificates.crt", "etc/ssl/certs"},
      {"Fedora", "etc/pki/tls/certs/ca-bundle.crt", ""},
      {"Fedora, newer", "etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem",
       "etc/pki/ca-trust/extracted/pem/directory-hash"},
      {"openSUSE", "var/lib/ca-certificates/ca-bundle.pem", "var/lib/ca-certificates/pem"},
      {"Alpine, bare", "etc/ssl/cert.pem", ""},
  };
  const HandPlatform platform;
  for (const auto& [system, file, folder] : rows) {
    SCOPED_TRACE(system);
    const toolkit::FolderItem root = toolkit::MakeTemporaryFolder();
    EXPECT_EQ(Authorities(root).SystemFile(), "");
    fs::create_directories((root.Path() / file).parent_path());
    fs::create_directories(root.Path() / "etc/ssl/certs");
    fs::create_directories(root.Path() / folder);
    std::ofstream(root.Path() / file) << "theirs\n";
    std::ofstream(root.Path() / folder / "theirs-by-name.0") << "theirs\n";
    Authorities authorities(root);
    EXPECT_EQ(authorities.SystemFile(), (root.Path() / file).string());
    EXPECT_EQ(authorities.SystemFolder(), "") << "it is not by hash";
    std::ofstream(root.Path() / folder / "0a1b2c3d.0") << "theirs\n";
    EXPECT_EQ(Authorities(root).SystemFolder(), *folder == '\0' ? "" : (root.Path() / folder).string());
    EXPECT_FALSE(authorities.HasAdded());
    authorities.Add("ours");
    EXPECT_THAT(authorities.All(), testing::AllOf(testing::StartsWith("theirs\n"), testing::HasSubstr("\nours\n")));
    fs::remove_all(root.Path());
  }
}
