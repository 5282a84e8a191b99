#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "update/check/UpdateInformation.h"

using boost::json::parse;
using boost::json::serialize;
using Kaju::BinaryInformation;
using Kaju::UpdateInformation;
using namespace std::string_literals;

namespace {

struct Informing : testing::Test {
  HandPlatform platform;
};

}  // namespace

TEST_F(Informing, IsReadWrittenAndCopiedWhole) {
  constexpr const char* whole =
      R"({"AppName":"A","Expires":"e","ImageURL":"i","MinimumRequiredVersion":"1","ReleaseNotes":"n",)"
      R"("RequiresPayment":true,"UseTransparency":false,"Version":"2","MacBinary":{"Hash":"h","URL":"u"},)"
      R"("LinuxBinary64bit":{"Hash":"h","URL":"u","SHA256":"s","Size":18446744073709551615,"ExecutableName":"e"}})";
  const UpdateInformation read(parse(whole));
  const UpdateInformation copy(static_cast<const Kaju::Information&>(read));
  read.Binaries().front()->URL = "changed";
  EXPECT_EQ(serialize(copy.ToJSON()), whole);
}

TEST_F(Informing, NamesFilesByPlainNamesOnly) {
  const std::tuple<const char*, std::string, bool> rows[] = {
      // clang-format off
      {"",                     "",           false}, {"http://h/my%20app.zip", "my app.zip", true},
      {"http://h/",            "",           false}, {"app.zip",               "app.zip",    true},
      {"http://h/.",           ".",          false}, {"http://h/100%",         "100%",       true},
      {"http://h/%2e%2E",      "..",         false}, {"http://h/%zz%4",        "%zz%4",      true},
      {"http://h/%2fetc%2fx",  "/etc/x",     false}, {"http://h/a%00b",        "a\0b"s,      false},
      {"http://h/..%2f..%2fx", "../../x",    false}, {"http://h/..%5cx",       "..\\x",      false},
      {"http://h/%20",         " ",          false}, {"http://h/%e9\u00fc",   "\xE9\u00fc",  true},
      // clang-format on
  };
  for (const auto& [url, name, isUsable] : rows) {
    BinaryInformation file(false);
    file.URL = url;
    EXPECT_EQ(file.FileName(), name);
    EXPECT_EQ(file.HasUsableNames(), isUsable) << url;
    for (const bool isRequired : {true, false}) {
      BinaryInformation program(isRequired);
      program.URL = "app.zip";
      program.ExecutableName = name;
      EXPECT_EQ(program.HasUsableNames(), isUsable || (name.empty() && !isRequired)) << name;
    }
  }
}
