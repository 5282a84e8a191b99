#include <gmock/gmock.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"
#include "tests/support/OtherWindow.h"
#include "tests/support/Publisher.h"
#include "toolkit/TextFile.h"
#include "update/install/KajuUpdateWindow.h"

namespace fs = std::filesystem;
using Kaju::UpdateChecker;
using testing::ElementsAre;
using toolkit::FolderItem;
using toolkit::LinkTarget;
using toolkit::TransferFault;
using Stage = KajuUpdateWindow::Stage;

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;

// The hash is that of "archive".
const std::string file = R"({"URL":"http://h/a.zip","Hash":"888D0EE361AF3603736F32131E7B20A2","ExecutableName":"x"})";

/// `members` are further JSON members of the offer, each after a comma.
std::shared_ptr<Kaju::UpdateInformation> Offer(const std::string& version, const std::string& members = "",
                                               const std::string& binary = R"("LinuxBinary64bit":)" + file) {
  return std::make_shared<Kaju::UpdateInformation>(
      *toolkit::ParseJSONItem(R"({"AppName":"A & <b>","Version":")" + version + "\"," + binary + members + "}"));
}

struct UpdateWindow : testing::Test {
  UpdateWindow() { Remake(); }
  void TearDown() override { platform.CloseWindows(); }

  /// Makes a new window and checker.
  void Remake() {
    if (window) window->Close();
    if (platform.OpenWindows().empty()) std::make_shared<OtherWindow>()->Show();
    platform.Quits.clear();
    platform.Requests.clear();
    platform.Processes.clear();
    checker = std::make_shared<UpdateChecker>(platform.ApplicationDataFolder(), "prefs");
    window = KajuUpdateWindow::Shared();
  }
  void Choose(Kaju::Offers offers) {
    window->TellPainted();
    window->ChooseUpdate(checker, std::move(offers));
  }
  /// Offers this, presses the install button, and answers the request that looks for redirects.
  void Install(const std::shared_ptr<Kaju::UpdateInformation>& offer = Offer("2")) {
    Choose({offer});
    platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, ""); };
    window->btnOK.Press();
  }
  void InstallUntilUnpacking() {
    Install();
    platform.LastRequest().Reply(200, "archive");
  }
  /// Unpacks nothing but a folder of that name with the executable in it. The program that is then started to find out
  /// whether one can be ends with `status`.
  void Unpack(
      const std::string& entry, int status = 0, const std::function<void()>& meanwhile = [] {}) {
    const FolderItem folder = window->DeleteOnCancel.back().Child(entry);
    folder.CreateAsFolder();
    toolkit::ReplaceFile(folder.Child("x"), "#!");
    platform.WhileWaiting = [this, status, meanwhile] { meanwhile(), platform.Processes.back()->End(status); };
    platform.Processes.back()->End(0);
  }
  [[nodiscard]] bool NothingIsLeft() const {
    const auto exists = [](const FolderItem& item) { return item.Exists(); };
    return std::ranges::none_of(window->DeleteOnCancel, exists) && std::ranges::none_of(window->DeleteOnClose, exists);
  }
  [[nodiscard]] std::size_t RunningRequests() const {
    return static_cast<std::size_t>(std::ranges::count_if(platform.Requests, [](auto& r) { return r->IsRunning(); }));
  }

  HandPlatform platform;
  App app{{1, 2, 3}};
  std::shared_ptr<UpdateChecker> checker;
  std::shared_ptr<KajuUpdateWindow> window;
};

}  // namespace

TEST_F(UpdateWindow, ShowsTheNewestFirstAndSkipsOthers) {
  Choose({Offer("1.3"), Offer("1.10", R"(,"MinimumRequiredVersion":"1.2.4","ReleaseNotes":"<p>ten")"),
          Offer("1.3b2", R"(,"MinimumRequiredVersion":"1.2.3")")});
  const auto& popup = window->pumUpdates;
  EXPECT_EQ(popup.Text(0) + " " + popup.Text(1) + " " + popup.Text(2), "1.10 1.3 1.3b2");
  EXPECT_EQ(window->hvNotes.Page(), "<p>ten");
  window->btnSkipVersion.Press();
  EXPECT_THAT(platform.Messages,
              ElementsAre("You cannot skip versions until you have updated to version 1.2.4 or beyond."));
  for (const int left : {2, 1}) {
    window->pumUpdates.Select(1);
    window->btnSkipVersion.Press();
    EXPECT_EQ(popup.ListCount(), left);
    EXPECT_EQ(popup.ListIndex(), 0);
  }

  Remake();
  Choose({Offer("1.7")});
  EXPECT_FALSE(window->pumUpdates.Visible() || window->lblVersions.Visible());
  window->btnSkipVersion.Press();
  EXPECT_TRUE(window->IsClosed());
  checker = nullptr;
  window = nullptr;
  EXPECT_EQ(ReadFile(platform.ApplicationDataFolder().Child("prefs")), R"({"IgnoreVersionsPref":["1.7"]})");
}

TEST_F(UpdateWindow, TellsWhyAnUpdateFails) {
  const auto install = [&](const std::string& members) {
    Install(Offer("2", "", R"("LinuxBinary64bit":{"Hash":"888d0ee361af3603736f32131e7b20a2",)" + members + "}"));
  };
  const auto named = [&](const char* name, const char* executable) {
    return [=] { install(R"("URL":"http://h/)"s + name + R"(","ExecutableName":")" + executable + "\""); };
  };
  const auto sized = [&](const char* size, const std::function<void(SentRequest&)>& reply) {
    return [=, this] {
      install(R"("URL":"http://h/a.zip","ExecutableName":"x","Size":)"s + size);
      reply(platform.LastRequest());
    };
  };
  const auto stalls = [&] {
    Install();
    platform.LastRequest().BeginReply(200);
    for (const char* part : {"arc", "hive"}) {  // time does not matter as long as bytes arrive
      platform.Advance(4999ms);
      platform.LastRequest().ReplyPart(part);
    }
    platform.Advance(5000ms);
  };
  const auto unpackerEnds = [&](int status) {
    return [=, this] { InstallUntilUnpacking(), platform.Processes.back()->End(status); };
  };
  const auto unpacked = [&](const char* entry, int status = 0) {
    return [=, this] { InstallUntilUnpacking(), Unpack(entry, status); };
  };
  const auto linked = [&] {
    InstallUntilUnpacking();
    const FolderItem program = window->DeleteOnCancel.back().Child("app").Child("x");
    program.Parent().CreateAsFolder();
    fs::create_symlink("/bin/sh", program.Path());
    platform.Processes.back()->End(0);
  };
  const auto pressedWithout = [&](const char* gone) {
    return [=, this] {
      InstallUntilUnpacking(), Unpack("app");
      fs::remove_all(window->DeleteOnCancel.back().Path() / gone);
      window->btnOK.Press();
    };
  };
  const std::string error = "An error has occurred.";
  const std::string corrupted = "The downloaded file appears to be corrupted.";
  const std::string noProgram = "The update does not contain the program.";
  const std::tuple<const char*, std::function<void()>, std::string, std::size_t> rows[] = {
      {"status", sized("7", [](auto& sent) { sent.Reply(404, "none here"); }), error, 2},
      {"hash", [&] { Install(), platform.LastRequest().Reply(200, "other"); }, corrupted, 2},
      {"socket", [&] { Install(), platform.LastRequest().Fail(TransferFault::Refused); }, error + "  (102)", 2},
      {"stall", stalls, "The operation has timed out.", 2},
      {"size announced", sized("8", [](auto& sent) { sent.BeginReply(200, {}, 7); }), corrupted, 2},
      {"size exceeded", sized("7", [](auto& sent) { sent.BeginReply(200), sent.ReplyPart("archives"); }), corrupted, 2},
      {"no archive", unpackerEnds(9), error, 2},
      {"nothing in it", unpackerEnds(0), error, 2},
      {"hidden", unpacked(".x"), error, 2},
      {"nothing starts", unpacked("app", 126), "No program can be started from the temporary folder.", 2},
      {"a link elsewhere", linked, noProgram, 2},
      {"program is gone", pressedWithout("app/x"), noProgram, 2},
      {"update is gone", pressedWithout("app"), "The unpacked update is no longer there.", 2},
      {"file above", named("..", "x"), error, 0},
      {"executable above", named("a.zip", "../x"), error, 0},
  };
  for (const auto& [name, act, message, requests] : rows) {
    SCOPED_TRACE(name);
    Remake();
    act();
    EXPECT_EQ(platform.Requests.size(), requests);
    EXPECT_EQ(window->CurrentStage, Stage::Failed);
    EXPECT_EQ(window->lblInstallMessage.Text(), message);
    EXPECT_TRUE(window->btnCancel.Enabled() && !window->btnOK.Enabled());
    EXPECT_TRUE(window->Initiater == nullptr && app.UpdateInitiater == nullptr && platform.Quits.empty());
    EXPECT_EQ(RunningRequests(), 0U);
    window->btnCancel.Press();
    EXPECT_TRUE(window->IsClosed() && NothingIsLeft());
  }
}

TEST_F(UpdateWindow, StopsInTheMiddleOfEverything) {
  const auto wait = [&](const std::function<void()>& end) {
    platform.WhileWaiting = [end, waited = false]() mutable {
      if (!std::exchange(waited, true)) end();
    };
  };
  const std::string link = R"(,"ReleaseNotes":"http://h/notes\n")";
  const std::string picture = R"(,"ImageURL":"http://h/picture")";
  using Enter = std::function<void(const std::function<void()>&)>;
  const std::tuple<const char*, Enter, std::size_t> rows[] = {
      {"the picture's redirects", [&](auto& end) { wait(end), Choose({Offer("2", picture)}); }, 1},
      {"the notes' redirects", [&](auto& end) { wait(end), Choose({Offer("2", link)}); }, 1},
      {"the choice", [&](auto& end) { Choose({Offer("2")}), end(); }, 0},
      {"the redirects", [&](auto& end) { Choose({Offer("2")}), wait(end), window->btnOK.Press(); }, 1},
      {"the download", [&](auto& end) { Install(), end(); }, 2},
      {"hashing",
       [&](auto& end) { Install(), platform.DuringBreak = end, platform.LastRequest().Reply(200, "archive"); }, 2},
      {"unpacking", [&](auto& end) { InstallUntilUnpacking(), end(); }, 2},
      {"the trial of a program", [&](auto& end) { InstallUntilUnpacking(), Unpack("x", 126, end); }, 2},
      {"the end", [&](auto& end) { InstallUntilUnpacking(), Unpack("x"), end(); }, 2},
  };
  const std::function<void()> ends[] = {[&] { window->btnCancel.Press(); }, [&] { window->CloseAsUser(); },
                                        [&] { platform.EndSession(); },
                                        [&] { toolkit::Quit(), platform.CloseWindows(); }};
  for (const auto& [name, enter, requests] : rows) {
    for (const auto& end : ends) {
      SCOPED_TRACE(name);
      Remake();
      enter(end);
      EXPECT_TRUE(window->IsClosed() && NothingIsLeft());
      EXPECT_EQ(platform.Requests.size(), requests);
      EXPECT_EQ(RunningRequests(), 0U);
      for (const auto& process : platform.Processes) EXPECT_TRUE(process->IsKilled || !process->Ended);
      EXPECT_TRUE(app.UpdateInitiater == nullptr && platform.Messages.empty());
      platform.Advance(10'000ms);
      EXPECT_EQ(window->CurrentStage, Stage::Cancelled);
    }
  }
}

TEST_F(UpdateWindow, OnlyTheSessionEndsUnderAQuestion) {
  for (const bool isSession : {false, true}) {
    Remake();
    platform.WhileMessageStands = [&] {
      isSession ? platform.EndSession() : (window->btnCancel.Press(), window->CloseAsUser(), toolkit::Quit());
    };
    Install(Offer("2", R"(,"RequiresPayment":true)"));
    EXPECT_EQ(window->CurrentStage, isSession ? Stage::Cancelled : Stage::Installing);
  }
  EXPECT_TRUE(window->IsClosed() && NothingIsLeft() && platform.Requests.empty());
}

TEST_F(UpdateWindow, QuitsWhereAnUpdateIsRequired) {
  for (const bool isRequired : {true, false}) {
    Remake();
    checker->AllowedInteraction = 0;
    checker->ServerPublicRSAKey = Publisher().PublicKey();
    checker->UpdateURL = "http://h/doc";
    const std::string required = isRequired ? R"([{"MinimumRequiredVersion":"2",)" : "[{";
    const auto packet =
        Publisher().Packet(required + R"("Version":"2","AppName":"A","LinuxBinary64bit":)" + file + "}]");
    platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, packet); };
    checker->Execute();
    Choose({Offer("2")});
    window->btnCancel.Press();
    EXPECT_EQ(platform.Quits.size(), isRequired ? 1U : 0U);
    EXPECT_EQ(window->IsClosed(), !isRequired);
  }
}

TEST_F(UpdateWindow, LetsLinksOutOnlyToTheBrowser) {
  Choose({Offer("2")});
  for (const auto& [url, opens] : {std::pair("HTTPS://a", 1U),
                                   {"mailto:a@b", 1U},
                                   {"file:///etc/passwd", 0U},
                                   {"javascript:1", 0U},
                                   {"httpx://a", 0U},
                                   {"", 0U}}) {
    platform.OpenedURLs.clear();
    window->hvNotes.Follow(url, LinkTarget::SamePlace);
    EXPECT_TRUE(platform.OpenedURLs.empty()) << url;
    window->hvNotes.Follow(url, LinkTarget::NewWindow);
    EXPECT_EQ(platform.OpenedURLs.size(), opens) << url;
  }
  EXPECT_EQ(window->hvNotes.Generation(), 1U);
}
