// The update window: how fast it opens, and an update from the first byte of its file until it is ready to install.
//
// The real window downloads from a server on this machine, hashes and unpacks. Each download runs in its own process,
// whose memory is that of the program. Alternating with it, the floor does the same work in the same place: libcurl
// writes the file, then openssl and unzip read it.

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>

#include "shell/App.h"
#include "signing/SigningKey.h"
#include "support/ChildProcess.h"
#include "support/CurlConnection.h"
#include "support/Desktop.h"
#include "support/FileServer.h"
#include "support/Measure.h"
#include "support/Memory.h"
#include "support/Report.h"
#include "support/TemporaryFolder.h"
#include "support/UpdateWindow.h"
#include "support/VirtualScreen.h"
#include "tests/support/OtherWindow.h"
#include "update/check/FileHelpers.h"
#include "update/install/KajuUpdateWindow.h"
#include "update/install/UpdateWindowPresenter.h"

namespace {

using bench::Desktop;
using bench::Unit;
using Stage = KajuUpdateWindow::Stage;

constexpr int rounds = 6;
constexpr int openings = 40;
constexpr int manyOffers = 50;
constexpr int megabytesOfLarge = 200;
constexpr int megabytesOfSmall = 20;
constexpr std::size_t megabyte = 1'000'000;
constexpr double slowestUnpacking = 1.2;
constexpr double slowestDownload = 1.1;
constexpr double longestOpening = 0.080;
constexpr double longestPause = 0.1;
constexpr int offersOfLargeDocument = 100'000;
// Memory with 200 MB against 20 MB. A program that holds the whole file would reach 4.
constexpr double tolerableGrowth = 1.5;
constexpr double tolerableDelay = 1.2;

void Run(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error("this failed: " + command);
}

std::string Quoted(const std::filesystem::path& path) { return toolkit::FolderItem(path).ShellPath(); }

/// Three quarters of the archive cannot be compressed, as the resources of a program; the rest is text.
std::string MakeArchive(const std::filesystem::path& folder, int megabytes) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string name = std::to_string(megabytes) + ".zip";
  const bench::TemporaryFolder scratch;
  const std::filesystem::path program = scratch.Path() / "corvane";
  std::filesystem::create_directory(program);
  std::ofstream(program / "corvane") << "the executable";
  std::mt19937_64 random(static_cast<unsigned>(megabytes));
  for (int part = 0; part < megabytes; part += 4) {
    std::string bytes(3 * megabyte, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    std::ofstream(program / ("library" + std::to_string(part)), std::ios::binary) << bytes;
    std::string text(4 * megabyte / 3, '\0');
    std::ranges::generate(text, [&] { return letters[random() % letters.size()]; });
    std::ofstream(program / ("text" + std::to_string(part)), std::ios::binary) << text;
  }
  Run("cd " + Quoted(scratch.Path()) + " && zip -q -r " + Quoted(folder / name) + " corvane");
  return name;
}

/// Runs in its own process. Prints the seconds from the first header to the last byte, those from there until the
/// update is ready, and the peak memory.
void Install(Desktop& desktop, const std::string& url, const std::string& hash) {
  const App app({1, 0, 0});
  bench::PaintWatch watch("hvNotes");
  bench::UpdateWindow update;
  auto window = update.Open({bench::Offer("2.0.0", url, hash)});
  watch.Wait();
  window->btnOK.Press();
  Desktop::RunUntil([&] { return window->CurrentStage != Stage::Installing; });
  const double unpacking = bench::SecondsSince(desktop.LastByteAt());
  if (window->CurrentStage != Stage::AskingToQuit) throw std::runtime_error(window->lblInstallMessage.Text());
  std::cout << bench::Duration(desktop.LastByteAt() - desktop.HeadersAt()).count() << ' ' << unpacking << ' '
            << bench::PeakMemory() << std::endl;
  bench::UpdateWindow::Close(std::move(window));
}

struct Figures {
  std::vector<double> Downloading;
  std::vector<double> Unpacking;
  std::vector<double> Memory;
};

void InstallInProcess(const std::string& url, const std::string& hash, Figures& figures) {
  bench::ChildProcess program({bench::BuiltProgram("bench-installation"), "--install", url, hash});
  std::istringstream line(program.ReadLine());
  double downloading = 0;
  double unpacking = 0;
  double memory = 0;
  if (!(line >> downloading >> unpacking >> memory)) throw std::runtime_error("no figures: " + line.str());
  program.Wait();
  figures.Downloading.push_back(downloading);
  figures.Unpacking.push_back(unpacking);
  figures.Memory.push_back(memory);
}

void DoTheLeast(const std::string& url, Figures& figures) {
  const bench::TemporaryFolder scratch;
  const std::filesystem::path archive = scratch.Path() / "corvane.zip";
  bench::CurlConnection curl;
  const auto reply = curl.Download(url, archive);
  figures.Downloading.push_back(bench::SecondsSince(reply.HeadersAt));
  figures.Unpacking.push_back(bench::SecondsOf([&] {
    Run("openssl md5 " + Quoted(archive) + " >/dev/null && unzip -q " + Quoted(archive) + " -d " +
        Quoted(scratch.Path() / "decompressed"));
  }));
}

void MeasureInstalling(bench::Report& report) {
  const bench::TemporaryFolder folder;
  const std::string large = MakeArchive(folder.Path(), megabytesOfLarge);
  const std::string small = MakeArchive(folder.Path(), megabytesOfSmall);
  const std::string largeHash = Kaju::HashOfFile(toolkit::FolderItem(folder.Path() / large));
  const std::string smallHash = Kaju::HashOfFile(toolkit::FolderItem(folder.Path() / small));
  bench::ChildProcess server({bench::BuiltProgram("bench-installation"), "--serve", folder.Path()});
  const std::string url = server.ReadLine() + "/";
  Figures ofLarge;
  Figures ofSmall;
  Figures floor;
  for (int round = 0; round < rounds; ++round) {
    // Written out each time, so that neither waits for the other one's data.
    if (round % 2 == 0) DoTheLeast(url + large, floor);
    sync();
    InstallInProcess(url + large, largeHash, ofLarge);
    sync();
    if (round % 2 != 0) DoTheLeast(url + large, floor);
    InstallInProcess(url + small, smallHash, ofSmall);
    sync();
  }
  report.Ratio("200 MB update, last byte to ready to install", Unit::Seconds, bench::Median(ofLarge.Unpacking),
               {"openssl md5, then unzip", bench::Median(floor.Unpacking)}, slowestUnpacking);
  report.Ratio("200 MB update, download", Unit::Seconds, bench::Median(ofLarge.Downloading),
               {"libcurl", bench::Median(floor.Downloading)}, slowestDownload);
  report.Ratio("peak memory with an update of 200 MB", Unit::Bytes, bench::Median(ofLarge.Memory),
               {"of 20 MB", bench::Median(ofSmall.Memory)}, tolerableGrowth);
}

double SecondsToOpen(bench::UpdateWindow& update, const Kaju::Offers& offers) {
  bench::PaintWatch watch("hvNotes");
  watch.Expect([](QObject& notes) { return !qobject_cast<QTextEdit*>(&notes)->document()->isEmpty(); });
  std::shared_ptr<KajuUpdateWindow> window;
  const double seconds = watch.SecondsToPaint([&] { window = update.Open(offers); });
  if (window->pumUpdates.ListCount() != static_cast<int>(offers.size()))
    throw std::runtime_error("an offer is missing");
  bench::UpdateWindow::Close(std::move(window));
  return seconds;
}

void MeasureOpening(bench::Report& report) {
  const App app({1, 0, 0});
  bench::UpdateWindow update;
  Kaju::Offers offers;
  for (int number = 0; number < manyOffers; ++number) offers.push_back(bench::Offer("2.0." + std::to_string(number)));
  const Kaju::Offers one{offers.back()};
  std::vector<double> ofOne;
  std::vector<double> ofMany;
  for (int opening = 0; opening <= openings; ++opening) {
    const double shortMenu = SecondsToOpen(update, one);
    const double longMenu = SecondsToOpen(update, offers);
    if (opening == 0) continue;
    ofOne.push_back(shortMenu);
    ofMany.push_back(longMenu);
  }
  report.Value("opening the update window", Unit::Seconds, bench::Median(ofOne), longestOpening);
  report.Ratio("opening it with 50 offers", Unit::Seconds, bench::Median(ofMany), {"with one", bench::Median(ofOne)},
               tolerableDelay);
}

/// 60 MB of offers like those that a publisher writes.
std::string LargeDocument() {
  std::string document;
  for (int number = 0; number < offersOfLargeDocument; ++number) {
    document += document.empty() ? "[" : ",";
    document += R"({"AppName":"Corvane","Version":"2.)" + std::to_string(number / 900) + "." +
                std::to_string(number % 900) + R"(","MinimumRequiredVersion":"1.0","ReleaseNotes":")" +
                std::string(260, 'n') + R"(","Expires":"9999-12-31T23:59:59Z","LinuxBinary64bit":{)" +
                R"("URL":"http://h/corvane.zip","Hash":"d41d8cd98f00b204e9800998ecf8427e","Size":123456,)" +
                R"("ExecutableName":"corvane"}})";
  }
  return document + "]";
}

/// The longest time between two rounds of the event loop since it was made.
class PauseWatch {
 public:
  PauseWatch() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      longest_ = std::max(longest_, bench::SecondsSince(std::exchange(last_, bench::Clock::now())));
    });
    timer_.start(0);
  }
  [[nodiscard]] double Longest() const { return longest_; }

 private:
  QTimer timer_;
  bench::Clock::time_point last_ = bench::Clock::now();
  double longest_ = 0;
};

void MeasureLargeDocument(bench::Report& report) {
  const App app({1, 0, 0});
  const SigningKey publisher;
  const bench::TemporaryFolder folder;
  std::ofstream(folder.Path() / "updates", std::ios::binary) << publisher.Packet(LargeDocument());
  bench::ChildProcess server({bench::BuiltProgram("bench-installation"), "--serve", folder.Path()});
  const auto checker = std::make_shared<Kaju::UpdateChecker>(toolkit::FolderItem(folder.Path()), "preferences",
                                                             std::make_shared<Kaju::UpdateWindowPresenter>());
  checker->ServerPublicRSAKey = publisher.PublicKey();
  checker->UpdateURL = server.ReadLine() + "/updates";
  checker->AllowedInteraction = Kaju::UpdateChecker::kAllowUpdateWindow;
  std::make_shared<OtherWindow>()->Show();
  std::vector<double> pauses;
  for (int round = 0; round < rounds; ++round) {
    const PauseWatch pause;
    bench::PaintWatch paint("hvNotes");
    checker->Execute();
    auto window = KajuUpdateWindow::Shared();
    if (window->pumUpdates.ListCount() != offersOfLargeDocument) throw std::runtime_error("an offer is missing");
    paint.Wait();
    bench::UpdateWindow::Close(std::move(window));
    pauses.push_back(pause.Longest());
  }
  report.Value("longest pause with a document of 60 MB", Unit::Seconds, bench::Median(pauses), longestPause);
}

int Measure(int argc, char** argv) {
  const bench::VirtualScreen screen;
  Desktop desktop(argc, argv);
  bench::Report report;
  MeasureLargeDocument(report);  // first: nothing is fetched any more once the last window has been closed
  MeasureInstalling(report);
  MeasureOpening(report);
  return report.Status();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--serve") {
      bench::ServeFiles(arguments[1]);
      return EXIT_FAILURE;
    }
    if (arguments.size() != 3 || arguments[0] != "--install") return Measure(argc, argv);
    Desktop desktop(argc, argv);
    Install(desktop, arguments[1], arguments[2]);
    return EXIT_SUCCESS;
  } catch (const std::exception& exception) {
    std::cerr << "bench-installation: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
