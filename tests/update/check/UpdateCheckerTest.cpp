#include <map>

#include <gmock/gmock.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"
#include "tests/support/OfferRecorder.h"
#include "tests/support/Publisher.h"
#include "toolkit/TextFile.h"
#include "update/check/UpdateChecker.h"

using Kaju::UpdateChecker;
using Kaju::Width;
using testing::ElementsAre;
using Result = Kaju::UpdateChecker::ResultType;
using Versions = std::vector<std::string>;
using namespace std::string_literals;

namespace {

std::string Offer(const std::string& version, const std::string& minimum = "",
                  const std::string& binaries = R"("LinuxBinary64bit":{},"LinuxBinary":{},"MacBinary":{})") {
  return R"({"Version":")" + version + R"(","MinimumRequiredVersion":")" + minimum + R"(",)" + binaries + "}";
}

struct Checking : testing::Test {
  Checking() { Remake(); }

  void Remake() {
    presenter = std::make_shared<OfferRecorder>();
    checker = nullptr;
    checker = std::make_shared<UpdateChecker>(platform.ApplicationDataFolder(), "prefs", presenter);
    checker->ServerPublicRSAKey = Publisher().PublicKey();
    checker->UpdateURL = "http://updates:80/doc";
    checker->AllowedInteraction = UpdateChecker::kAllowUpdateWindow;
  }
  /// Runs the check on a genuine document of these offers.
  Result RunOn(const std::string& offers) {
    std::string& packet = packets[offers];
    if (packet.empty()) packet = Publisher().Packet("[" + offers + "]");
    return RunOnReply(200, packet);
  }
  Result RunOnReply(int status, const std::string& body) {
    presenter->Shown.clear();
    platform.Requests.clear();
    platform.WhileWaiting = [&] { platform.LastRequest().Reply(status, body); };
    checker->Execute();
    return checker->Result();
  }
  [[nodiscard]] Versions ShownVersions() const {
    Versions versions;
    for (const auto& offer : presenter->Shown) versions.push_back(offer->Version);
    return versions;
  }

  HandPlatform platform;
  toolkit::FolderItem preferences = platform.ApplicationDataFolder().Child("prefs");
  App app{{1, 2, 3}};  // "1.2.3"
  std::shared_ptr<OfferRecorder> presenter;
  std::shared_ptr<UpdateChecker> checker;
  std::map<std::string, std::string> packets;  // kept, since signing is slower than a run
};

}  // namespace

TEST_F(Checking, OffersWhatIsNewerAllowedWantedAndFits) {
  const std::pair<const char*, int> versions[] = {
      // and the highest AllowedStage at which it is offered
      {"1.2.2", 4}, {"1.2.3", 4}, {"1.2.3b999", 4}, {"1.2.3 (5)", 3}, {"1.2.4d1", 0}, {"1.2.4a1", 1}, {"1.2.4b1", 2}};
  for (const auto& [version, stage] : versions) {
    for (int rules = 0; rules < 64; ++rules) {
      const bool isRequired = (rules & 1) != 0;
      const bool isIgnored = (rules & 2) != 0;
      const bool isWide = (rules & 4) != 0;
      checker->AllowedStage = rules / 8 % 4;
      checker->Target.Bits = rules < 32 ? Width::Bits64 : Width::Bits32;
      checker->Allow32bitTo64bitUpdates = false;
      checker->ResetIgnored();
      if (isIgnored) checker->IgnoreVersion(version);
      const std::string binary = isWide ? R"("LinuxBinary64bit":{})" : R"("LinuxBinary":{},"MacBinary":{})";
      const bool concerns = isWide == (rules < 32) && stage < 4 && checker->AllowedStage <= stage;
      const Result expected = !concerns    ? Result::NoUpdateAvailable
                              : isRequired ? Result::RequiredUpdateAvailable
                              : isIgnored  ? Result::IgnoredUpdateAvailable
                                           : Result::UpdateAvailable;
      EXPECT_EQ(RunOn(Offer(version, isRequired ? "1.2.4" : "1.2.3", binary)), expected) << version << ' ' << rules;
      EXPECT_EQ(presenter->Shown.size(), concerns && (isRequired || !isIgnored) ? 1U : 0U) << version << ' ' << rules;
    }
  }
}

TEST_F(Checking, DecidesOverAllOffersOfADocument) {
  const std::string foreign = Offer("nonsense", "", "\"WindowsBinary\":{}");  // skipped before its version is parsed
  const std::string past = R"("LinuxBinary64bit":{},"Expires":"2026-01-01T00:00:00Z")";
  const std::string future = R"("LinuxBinary64bit":{},"Expires":"9999-12-31T23:59:59+23:59")";
  using enum Kaju::UpdateChecker::ResultType;
  const std::tuple<std::string, Result, Versions> rows[] = {
      {Offer("1.2.3") + "," + foreign, NoUpdateAvailable, {}},
      {R"({"Version":"9","Version":"1","LinuxBinary64bit":{}})", NoUpdateAvailable, {}},
      {Offer("5") + "," + Offer("4", "2") + "," + Offer("1.3B1"), RequiredUpdateAvailable, {"5", "4", "1.3B1"}},
      {Offer("1.4b1") + "," + Offer("1.5"), UpdateAvailable, {"1.5"}},
      {Offer("1.4b1", "1.2.3 (1)"), RequiredUpdateAvailable, {"1.4b1"}},
      {Offer("5", "4", past) + "," + Offer("2", "", future), UpdateAvailable, {"2"}},
  };
  checker->IgnoreVersion("1.4b1");
  for (const auto& [offers, result, shown] : rows) {
    EXPECT_EQ(RunOn(offers), result) << offers;
    EXPECT_EQ(ShownVersions(), shown) << offers;
  }
  checker->HonorIgnored = false;
  EXPECT_EQ(RunOn(Offer("1.4b1")), UpdateAvailable);
}

TEST_F(Checking, ServesEventsInALargeDocument) {
  std::string many;
  for (int offer = 0; offer < 100'000; ++offer) many += "{\"LinuxBinary\":{}},";  // 2 MB
  for (const int quitAt : {3, 1000}) {
    int breaks = 0;
    std::function<void()> count = [&] {
      platform.DuringBreak = count;
      if (++breaks == quitAt) toolkit::Quit();
    };
    platform.DuringBreak = count;
    RunOn(many + Offer("2"));
    EXPECT_THAT(presenter->Shown, ElementsAre());
    EXPECT_EQ(breaks, quitAt);
    platform.Quits.clear();
  }
}

TEST_F(Checking, ABadElementSpoilsTheWholeDocument) {
  Versions documents{"", "5", "{\"0\":{}}", "[" + Offer("2") + "]x", std::string(100, '[') + std::string(100, ']')};
  for (const auto& element : {"null"s, Offer("1.2 b4"), Offer("2", "x"), Offer("2\xFF"), R"({"MacBinary":5})"s,
                              Offer("2", "", R"("LinuxBinary64bit":{},"Expires":"2027-02-29T00:00:00Z")")})
    documents.push_back("[" + Offer("3") + "," + element + "]");
  for (const std::string& document : documents) {
    EXPECT_EQ(RunOnReply(200, Publisher().Packet(document)), Result::Error) << document;
    EXPECT_THAT(presenter->Shown, ElementsAre()) << document;
  }
  EXPECT_THAT(platform.Messages, ElementsAre());
}

TEST_F(Checking, TellsOfFailuresAndTriesAgain) {
  const std::string good = Publisher().Packet("[]");
  const std::tuple<int, std::string, const char*> rows[] = {
      {500, "", "No update data was available."},
      {200, "<html>", "The update packet signature marker was incorrect."},
      {200, good + " ", "The RSA signature of the update packet cannot be verified."},
  };
  for (const auto& [status, body, explanation] : rows) {
    checker->AllowedInteraction = UpdateChecker::kAllowErrorDialog;
    platform.Answer = toolkit::DialogButton::Action;
    platform.WhileMessageStands = [&] {
      platform.WhileMessageStands = [&] { platform.Answer = toolkit::DialogButton::Cancel; };
    };
    EXPECT_EQ(RunOnReply(status, body), Result::Error);
    EXPECT_EQ(std::exchange(platform.Messages, {}).size(), 2U);
    EXPECT_EQ(platform.Requests.size(), 2U);
    EXPECT_EQ(platform.LastDialog.Explanation, explanation);
  }
  EXPECT_EQ(RunOnReply(404, "whatever"), Result::NoUpdateAvailable);
}

TEST_F(Checking, AsksNobodyWhileAnOfferStands) {
  presenter->Shows = true;
  EXPECT_EQ(RunOn(Offer("2")), Result::UpdateWindowOpen);
  EXPECT_THAT(platform.Requests, testing::IsEmpty());
}

TEST_F(Checking, RemembersSkippedVersionsAlone) {
  for (const char* version : {"1.3", "", "2b1", "1.3", "2B1"}) checker->IgnoreVersion(version);
  EXPECT_FALSE(preferences.Exists());
  Remake();
  EXPECT_EQ(toolkit::ReadFile(preferences), R"({"IgnoreVersionsPref":["1.3","2b1"]})");
  const std::string odd = "{ \"Other\": 1,\n\"IgnoreVersionsPref\": [1.5, \"x\"] }";
  toolkit::ReplaceFile(preferences, odd);
  Remake();
  EXPECT_EQ(RunOn(Offer("1.5")), Result::IgnoredUpdateAvailable);
  Remake();
  EXPECT_EQ(toolkit::ReadFile(preferences), odd);
}
