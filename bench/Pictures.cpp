// Pictures that are made to take much time or memory: as the picture of an offer, and 200 times in its notes. How long
// does the event loop pause, and how much memory do the program and its decoders use?
//
// Each picture is shown in its own process by the real window, from a server on this machine. A pause is the time
// between two ticks of a timer in the event loop, without the time that the process waited for a processor. The memory
// is the proportional one of that process and its children, and that of their memory files, sampled every few
// milliseconds.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <QTimer>

#include "shell/App.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/FileServer.h"
#include "support/Measure.h"
#include "support/Memory.h"
#include "support/Report.h"
#include "support/TemporaryFolder.h"
#include "support/UpdateWindow.h"
#include "support/VirtualScreen.h"
#include "tests/support/HostilePictures.h"
#include "tests/support/OtherWindow.h"
#include "toolkit/Picture.h"
#include "toolkit/qt/DecoderProgram.h"

using namespace std::string_literals;

namespace {

using bench::Desktop;
using bench::Unit;

constexpr const char* usualPicture = "usual";
constexpr int picturesInNotes = 200;
constexpr double longestPause = 0.1;
constexpr double mostMemory = 150e6;
constexpr std::chrono::milliseconds betweenLooks(4);

double MemoryOfFiles() {
  constexpr double bytesOfBlock = 512;
  double memory = 0;
  std::error_code closed;
  for (const auto& open : std::filesystem::directory_iterator("/proc/self/fd", closed)) {
    struct stat file {};
    const std::string target = std::filesystem::read_symlink(open, closed);
    const bool isInMemory = target.starts_with("/memfd:") && stat(open.path().c_str(), &file) == 0;
    if (isInMemory) memory += static_cast<double>(file.st_blocks) * bytesOfBlock;
  }
  return memory;
}

double MemoryOfAll() {
  const std::string own = std::to_string(getpid());
  double memory = bench::ProportionalMemory(getpid()) + MemoryOfFiles();
  std::ifstream children("/proc/" + own + "/task/" + own + "/children");
  for (pid_t child = 0; children >> child;) {
    try {
      memory += bench::ProportionalMemory(child);
    } catch (const std::exception&) {  // the child has ended
    }
  }
  return memory;
}

/// The seconds that this thread was ready to run but waited for a processor (see proc(5), "schedstat"): the load by
/// other programs.
double SecondsOfWaiting() {
  constexpr double nanosecond = 1e-9;
  std::ifstream file("/proc/thread-self/schedstat");
  double ran = 0;
  double waited = 0;
  file >> ran >> waited;
  return waited * nanosecond;
}

/// Samples this process during its own lifetime.
class Watch {
 public:
  Watch() : looking_([this] { Look(); }) {
    QObject::connect(&beat_, &QTimer::timeout, [this] {
      const double waited = SecondsOfWaiting();
      pause_ = std::max(pause_, bench::SecondsSince(last_) - (waited - waited_));
      last_ = bench::Clock::now();
      waited_ = waited;
    });
    beat_.setTimerType(Qt::PreciseTimer);
    beat_.start(1);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    ends_ = true;
    looking_.join();
  }

  [[nodiscard]] double LongestPause() const { return pause_; }
  [[nodiscard]] double MostMemory() const { return memory_; }

 private:
  void Look() {
    for (; !ends_; std::this_thread::sleep_for(betweenLooks)) memory_ = std::max<double>(memory_, MemoryOfAll());
  }

  QTimer beat_;
  bench::Clock::time_point last_ = bench::Clock::now();
  double waited_ = SecondsOfWaiting();
  double pause_ = 0;
  std::atomic<double> memory_ = 0;
  std::atomic<bool> ends_ = false;
  std::thread looking_;
};

/// Runs in its own process. Prints the longest pause and the memory above idle.
void Show(const std::string& where, const std::string& folder, const std::string& name) {
  const App app({1, 0, 0});
  std::make_shared<OtherWindow>()->Show();
  bench::UpdateWindow update;
  bench::PaintWatch painted("hvNotes");
  auto offer = bench::Offer("2.0.0");
  offer->ImageURL = folder + usualPicture;
  auto window = update.Open({offer});
  painted.Wait();
  if (offer->Image() == nullptr) throw std::runtime_error("a usual picture does not come");
  bench::UpdateWindow::Close(std::move(window));
  const double idle = MemoryOfAll();

  offer = bench::Offer("2.0.0");
  int missing = 0;
  if (where == "offer") {
    offer->ImageURL = folder + name;
  } else {
    for (; missing < picturesInNotes; ++missing) {
      for (const std::string& part : {"<img src='"s, folder, name, "?"s, std::to_string(missing), "'>"s})
        offer->ReleaseNotes += part;
    }
  }
  const Watch watch;
  window = KajuUpdateWindow::Shared();
  window->hvNotes.Error = [&](int /*code*/, const std::string& /*why*/) { --missing; };
  update.Open({offer});
  painted.Wait();
  Desktop::RunUntil([&] { return missing == 0; });
  if (offer->Image() != nullptr) throw std::runtime_error("the picture was shown");
  std::cout << watch.LongestPause() << ' ' << watch.MostMemory() - idle << std::endl;
  std::_Exit(EXIT_SUCCESS);
}

void Measure(bench::Report& report) {
  const bench::VirtualScreen screen;
  const bench::TemporaryFolder folder;
  const std::vector<HostilePicture> pictures = HostilePictures();
  for (const auto& picture : pictures)
    std::ofstream(folder.Path() / std::to_string(&picture - pictures.data()), std::ios::binary) << picture.Encoded;
  const auto usual = toolkit::OpenPictureResource("corvane");
  std::ofstream(folder.Path() / usualPicture, std::ios::binary)
      .write(reinterpret_cast<const char*>(usual->Encoded().data()), std::ssize(usual->Encoded()));
  bench::ChildProcess server({bench::BuiltProgram("bench-pictures"), "--serve", folder.Path()});
  const std::string url = server.ReadLine() + "/";
  for (const std::string where : {"offer", "notes"}) {
    for (const auto& picture : pictures) {
      const std::string name = std::to_string(&picture - pictures.data());
      bench::ChildProcess program({bench::BuiltProgram("bench-pictures"), "--show", where, url, name});
      std::istringstream line(program.ReadLine());
      double pause = 0;
      double memory = 0;
      if (!(line >> pause >> memory)) throw std::runtime_error("no figures: " + line.str());
      const std::string subject = std::string(picture.Name) + (where == "offer" ? ", of an offer" : ", 200 in notes");
      report.Value(subject + ": longest pause", Unit::Seconds, pause, longestPause);
      report.Value(subject + ": memory above idle", Unit::Bytes, memory, mostMemory);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toolkit::qt::DecodeIfAsked(argc, argv)) return *status;
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--serve") bench::ServeFiles(arguments[1]);
    if (arguments.size() == 4 && arguments[0] == "--show") {
      Desktop desktop(argc, argv);
      Show(arguments[1], arguments[2], arguments[3]);
    }
    bench::Report report;
    Measure(report);
    return report.Status();
  } catch (const std::exception& exception) {
    std::cerr << "bench-pictures: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
