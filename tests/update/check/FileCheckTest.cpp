#include <dlfcn.h>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>
#include <openssl/evp.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/TextFile.h"
#include "update/check/FileCheck.h"

namespace {

bool isMD5SwitchedOff = false;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): for the function below

const std::string md5 = "888d0ee361af3603736f32131e7b20a2";
const std::string sha256 = "0eb3e36bfb24dcd9bb1d1bece1531216b59539a8fde17ee80224af0653c92aa3";

}  // namespace

/// The library's own, but for the algorithm that a system has switched off.
extern "C" EVP_MD* EVP_MD_fetch(OSSL_LIB_CTX* ctx, const char* algorithm, const char* properties) {
  if (isMD5SwitchedOff && std::string_view(algorithm) == "MD5") return nullptr;
  static const auto fetch = reinterpret_cast<decltype(&EVP_MD_fetch)>(dlsym(RTLD_NEXT, "EVP_MD_fetch"));
  return fetch(ctx, algorithm, properties);
}

TEST(FileCheck, TakesOnlyWhatIsWhollyAsTold) {
  const HandPlatform platform;
  const toolkit::FolderItem file = platform.DesktopFolder().Child("file");
  toolkit::ReplaceFile(file, "archive");
  const std::string strong = R"(,"SHA256":")" + sha256 + "\"";
  const std::string other = "1" + sha256.substr(1);
  using enum Kaju::FileVerdict;
  const std::tuple<std::string, std::string, Kaju::FileVerdict, Kaju::FileVerdict> rows[] = {
      // clang-format off
      // the MD5, and what else is told             with MD5   and without it
      {md5, "",                                     Genuine,   Uncheckable},
      {other, "",                                   Corrupted, Uncheckable},
      {md5, strong,                                 Genuine,   Genuine},
      {"0" + md5.substr(1), strong,                 Corrupted, Genuine},
      {"", strong,                                  Corrupted, Genuine},
      {md5, R"(,"SHA256":")" + other + "\"",        Corrupted, Corrupted},
      {md5, R"(,"SHA256":"")",                      Corrupted, Corrupted},
      {md5, R"(,"SHA256":null)",                    Corrupted, Corrupted},
      {md5, R"(,"SHA256":[])",                      Genuine,   Uncheckable},
      {md5, strong + R"(,"Size":"7")",              Genuine,   Genuine},
      {md5, strong + R"(,"Size":6)",                Corrupted, Corrupted},
      // clang-format on
  };
  for (const auto& [hash, members, withMD5, withoutMD5] : rows) {
    const Kaju::BinaryInformation binary(true, boost::json::parse(R"({"Hash":")" + hash + "\"" + members + "}"));
    EXPECT_EQ(VerifyFile(file, binary), withMD5) << hash << members;
    isMD5SwitchedOff = true;
    EXPECT_EQ(VerifyFile(file, binary), withoutMD5) << hash << members;
    EXPECT_NE(VerifyFile(platform.DesktopFolder().Child("missing"), binary), Genuine) << hash << members;
    isMD5SwitchedOff = false;
  }
}
