// Start and idle memory of the program, against a bare Qt window with the same controls.
//
// A window counts as painted when the screen's pixels equal those of a first, warm-up start. The pixels are read from
// Xvfb's memory, so measuring costs neither program anything.

#include <algorithm>
#include <cstdint>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "support/ChildProcess.h"
#include "support/Measure.h"
#include "support/Memory.h"
#include "support/Report.h"
#include "support/VirtualScreen.h"

namespace {

using namespace std::chrono_literals;
using bench::ChildProcess;
using bench::VirtualScreen;
using Picture = std::vector<std::uint32_t>;

constexpr int starts = 21;
// The blinking text cursor covers fewer pixels than this.
constexpr int changingPixels = 60;
constexpr auto settlingTime = 1000ms;
constexpr auto longestStart = 20s;

struct Figures {
  std::vector<double> SecondsToPaint;
  std::vector<double> Memory;
};

Picture Look(const VirtualScreen& screen) { return {screen.Pixels().begin(), screen.Pixels().end()}; }

bool ShowsAlmost(const VirtualScreen& screen, const Picture& wanted) {
  int different = 0;
  for (std::size_t pixel = 0; pixel < wanted.size(); ++pixel) {
    if (screen.Pixels()[pixel] != wanted[pixel] && ++different > changingPixels) return false;
  }
  return true;
}

// Waits until the screen shows `picture`; the next program must start on an empty screen.
void WaitFor(const VirtualScreen& screen, const Picture& picture) {
  const auto start = bench::Clock::now();
  while (!ShowsAlmost(screen, picture)) {
    if (bench::Clock::now() - start > longestStart) throw std::runtime_error("a window never looked as it should");
    std::this_thread::sleep_for(200us);
  }
}

Picture LookOf(const std::string& program, const VirtualScreen& screen, const Picture& empty) {
  const ChildProcess process({program});
  std::this_thread::sleep_for(2 * settlingTime);
  if (ShowsAlmost(screen, empty)) throw std::runtime_error(program + " shows no window");
  return Look(screen);
}

void MeasureStart(const std::string& program, const VirtualScreen& screen, const Picture& painted, Figures& figures) {
  const auto start = bench::Clock::now();
  const ChildProcess process({program});
  WaitFor(screen, painted);
  figures.SecondsToPaint.push_back(bench::SecondsSince(start));
  std::this_thread::sleep_for(settlingTime);
  figures.Memory.push_back(bench::ProportionalMemory(process.Id()));
}

int Measure() {
  const VirtualScreen screen;
  std::this_thread::sleep_for(settlingTime);
  const Picture empty = Look(screen);
  const std::string corvane = bench::BuiltProgram("corvane");
  const std::string bareWindow = bench::BuiltProgram("bare-window");
  const Picture corvanePainted = LookOf(corvane, screen, empty);
  WaitFor(screen, empty);
  const Picture barePainted = LookOf(bareWindow, screen, empty);
  WaitFor(screen, empty);

  Figures ofCorvane;
  Figures ofBareWindow;
  for (int start = 0; start < starts; ++start) {
    MeasureStart(corvane, screen, corvanePainted, ofCorvane);
    WaitFor(screen, empty);
    MeasureStart(bareWindow, screen, barePainted, ofBareWindow);
    WaitFor(screen, empty);
  }
  bench::Report report;
  const std::string floor = "bare Qt window, same controls";
  report.Ratio("start to first painted window", bench::Unit::Seconds, bench::Median(ofCorvane.SecondsToPaint),
               {floor, bench::Median(ofBareWindow.SecondsToPaint)}, 1.5);
  report.Ratio("proportional memory of the idle program", bench::Unit::Bytes, bench::Median(ofCorvane.Memory),
               {floor, bench::Median(ofBareWindow.Memory)}, 1.4);
  return report.Status();
}

}  // namespace

int main() {
  try {
    return Measure();
  } catch (const std::exception& exception) {
    std::cerr << "bench-start: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
