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
  const UpdateInformation sparse(
      parse(R"({"version":"2","Other":[1],"AppName":{"a":1},"ImageURL":12.5,"ReleaseNotes":null,"Version":true,)"
            R"("RequiresPayment":"TRUE","UseTransparency":0,"LinuxBinary":{"url":"u"}})"));
  EXPECT_EQ(serialize(sparse.ToJSON()),
            R"({"AppName":"","ImageURL":"12.5","MinimumRequiredVersion":"","ReleaseNotes":"","RequiresPayment":true,)"
            R"("UseTransparency":false,"Version":"true","LinuxBinary":{"Hash":"","URL":""}})");
  EXPECT_THROW(UpdateInformation(*copy.Binaries().front()), Kaju::KajuException);
}

TEST_F(Informing, RefusesValuesThatDoNotConvert) {
  for (const char* json : {"[]", "5", "null", R"({"RequiresPayment":"yes"})", R"({"UseTransparency":""})",
                           R"({"AppName":1e400})", R"({"MacBinary":{"Size":-1}})", R"({"MacBinary":{"Size":1.5}})",
                           R"({"MacBinary":{"Size":"1x"}})", R"({"MacBinary":{"Size":""}})",
                           R"({"MacBinary":{"Size":null}})", R"({"MacBinary":null})", R"({"LinuxBinary":"x"})"})
    EXPECT_THROW(UpdateInformation(parse(json)), toolkit::RuntimeException) << json;
}

TEST_F(Informing, ReachesPropertiesAndFilesByName) {
  UpdateInformation update;
  update.SetByName("RequiresPayment", "Yes");
  update.SetByName("Version", "1.2b4");
  EXPECT_EQ(update.GetByName("RequiresPayment").Text() + update.GetByName("StageCode").Text(), "true2");
  EXPECT_THROW(update.SetByName("Binaries", 1), toolkit::KeyNotFoundException);
  EXPECT_THROW(update.SetByName("UseTransparency", "maybe"), toolkit::TypeMismatchException);
  EXPECT_TRUE(update.UseTransparency);
  EXPECT_EQ(update.FetchBinary("LinuxBinary"), update.FetchBinary("LinuxBinary"));
  EXPECT_THROW(update.FetchBinary("AmigaBinary"), toolkit::KeyNotFoundException);
  for (int round = 0; round < 2; ++round) update.RemoveBinary("LinuxBinary");
  EXPECT_EQ(update.PlatformBinary32bit(Kaju::System::Linux), nullptr);
}

TEST_F(Informing, TellsWhatMakesItInvalid) {
  const std::string form =
      "Version must be in one of these forms: 1, 1.2, 1.2.3, 1.2d4, 1.2a4, 1.2b4, 1.2.4b4, 1.3.4 (232), etc.";
  const std::string isNotValid = " Binary information is not valid: Missing ";
  const std::string both = R"("Hash":"h","URL":"u")";
  const std::tuple<std::string, std::string, std::string, std::string, std::string> rows[] = {
      // clang-format off
      {"1.3.4 (232)", "A",    "MacBinary",          both,                              ""},
      {"1",           "A",    "LinuxBinary",        both + R"(,"ExecutableName":"e")", ""},
      {"1..2",        "",     "MacBinary",          "",                                form},
      {"1\\n",        "A",    "MacBinary",          both,                              form},
      {"1",           " \\t", "MacBinary",          "",                                "Missing app name"},
      {"1",           "A",    "MacBinary",          R"("URL":"u")",                    "Mac" + isNotValid + "Hash"},
      {"1",           "A",    "WindowsBinary64bit", R"("Hash":"h","URL":" ")",         "Windows" + isNotValid + "URL"},
      {"1",           "A",    "LinuxBinary64bit",   both,                              "Linux" + isNotValid + "Executable Name"},
      // clang-format on
  };
  for (const auto& [version, app, name, binary, reason] : rows) {
    const UpdateInformation update(
        parse(R"({"Version":")" + version + R"(","AppName":")" + app + R"(",")" + name + "\":{" + binary + "}}"));
    EXPECT_EQ(update.IsValid(), reason.empty()) << reason;
    EXPECT_EQ(update.InvalidReason(), reason);
  }
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

TEST_F(Informing, FetchesItsPictureOnceItCanBeHad) {
  UpdateInformation update;
  EXPECT_EQ(update.Image(), nullptr);
  update.ImageURL = "http://pictures/a.png";
  platform.WhileWaiting = [&] {  // every other request is for redirects
    platform.LastRequest().Reply(200, platform.Requests.size() % 2 == 1 ? "" : "picture");
  };
  EXPECT_EQ(update.Image(), nullptr);  // no picture
  platform.PictureShown = toolkit::Pixels{{1, 2}, {3, 4}};
  const auto picture = update.Image();
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->Pixels().Colors, platform.PictureShown->Colors);
  EXPECT_EQ(update.Image(), picture);
  EXPECT_EQ(platform.Requests.size(), 4U);
}
