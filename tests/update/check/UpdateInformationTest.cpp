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
  EXPECT_EQ(update.FetchBinary("LinuxBinary"), update.FetchBinary("LinuxBinary"));
  EXPECT_THROW(update.FetchBinary("AmigaBinary"), toolkit::KeyNotFoundException);
  update.RemoveBinary("LinuxBinary");
  EXPECT_EQ(update.PlatformBinary32bit(Kaju::System::Linux), nullptr);
}

TEST_F(Informing, TellsWhatMakesItInvalid) {
  const std::pair<const char*, const char*> rows[] = {
      {R"("Version":"1.2.3b4","AppName":"A","MacBinary":{"Hash":"h","URL":"u"})", ""},
      {R"("Version":"1","AppName":"A","LinuxBinary":{"Hash":"h","URL":"u","ExecutableName":"e"})", ""},
      {R"("Version":"1..2","MacBinary":{})", "Version must be in one of these forms: 1, 1.2, 1.2.3, 1.2d4, 1.2a4"},
      {R"("Version":"1\n","AppName":"A")", "Version must"},
      {R"("Version":"1","AppName":" \t","MacBinary":{})", "Missing app name"},
      {R"("Version":"1","AppName":"A","MacBinary":{})", "Mac Binary information is not valid: Missing Hash"},
      {R"("Version":"1","AppName":"A","WindowsBinary64bit":{"Hash":"h","URL":" "})",
       "Windows Binary information is not valid: Missing URL"},
      {R"("Version":"1","AppName":"A","LinuxBinary64bit":{"Hash":"h","URL":"u"})",
       "Linux Binary information is not valid: Missing Executable Name"},
  };
  for (const auto& [members, reason] : rows) {
    const UpdateInformation update(parse("{"s + members + "}"));
    EXPECT_EQ(update.IsValid(), *reason == '\0') << members;
    EXPECT_THAT(update.InvalidReason(), testing::StartsWith(reason)) << members;
    EXPECT_EQ(update.InvalidReason().empty(), update.IsValid()) << members;
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
