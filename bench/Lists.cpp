// The program's lists with many or long rows: frames, opening, searching.
//
// The replies come from memory. A frame is the time from an input to the painted window. The median of three passes
// counts, since any other program that uses the processor makes a frame longer.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include "servercontrol/wContainerLogs.h"
#include "support/CurlConnection.h"
#include "support/Desktop.h"
#include "support/JSONFloor.h"
#include "support/Measure.h"
#include "support/PanelService.h"
#include "support/Report.h"
#include "support/ServerWindow.h"
#include "support/VirtualScreen.h"
#include "toolkit/ListSearch.h"

namespace {

using bench::Desktop;
using bench::PaintWatch;
using bench::Unit;

constexpr int manyLines = 1'000'000;
constexpr int manyContainers = 10'000;
constexpr int passes = 3;
constexpr int openings = 20;
constexpr int refreshes = 100;
constexpr double longestFrame = 0.050;
constexpr double longestPause = 0.100;
constexpr double longestOpening = 0.060;
constexpr double longestSearch = 0.3;

/// The longest frame of a pass, in seconds.
using Pass = std::function<double(PaintWatch&)>;

double LongestFrame(const Pass& pass) {
  PaintWatch watch("list_logs");
  std::vector<double> longest;
  longest.reserve(passes);
  for (int count = 0; count < passes; ++count) longest.push_back(pass(watch));
  return bench::Median(longest);
}

double Scroll(PaintWatch& watch, QScrollBar& bar) {
  constexpr int steps = 500;
  double longest = 0;
  for (int step = 0; step <= steps; ++step) {
    const auto value = static_cast<int>(std::lround(static_cast<double>(bar.maximum()) * step / steps));
    if (value == bar.value()) continue;
    longest = std::max(longest, watch.SecondsToPaint([&] { bar.setValue(value); }));
  }
  if (bar.maximum() > 0) watch.SecondsToPaint([&] { bar.setValue(0); });
  return longest;
}

double PressKeys(PaintWatch& watch, QWidget& list) {
  double longest = 0;
  for (const int key : {Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Up}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    longest = std::max(longest, watch.SecondsToPaint([&] { QCoreApplication::sendEvent(&list, &press); }));
  }
  return longest;
}

double ResizeWindow(PaintWatch& watch, QWidget& window) {
  constexpr int steps = 60;
  const QSize start = window.size();
  double longest = 0;
  for (int step = 1; step <= 2 * steps; ++step) {
    const int growth = 6 * (step <= steps ? step : 2 * steps - step);
    const QSize size = start + QSize(growth, growth);
    longest = std::max(longest, watch.SecondsToPaint([&] { window.resize(size); }));
  }
  return longest;
}

std::shared_ptr<std::string> LogReply(int count, const std::string& line) {
  auto reply = std::make_shared<std::string>(R"({"log":{)");
  for (int number = 0; number < count; ++number) {
    if (number > 0) *reply += ',';
    reply->append("\"").append(std::to_string(number)).append("\":[\"").append(line).append("\"]");
  }
  *reply += "}}";
  return reply;
}

std::string LongLine(std::size_t size) {
  std::string line;
  for (int word = 0; line.size() < size; ++word) {
    line.append("field").append(std::to_string(word)).append("=Zoë Grünwald; ");
  }
  return line;
}

void MeasureLongLines(Desktop& desktop, bench::Report& report, const std::string& subject, int count,
                      std::size_t size) {
  desktop.Answer("/api/v1/containers/logs", LogReply(count, LongLine(size)));
  std::vector<double> opened;
  for (int pass = 0; pass < passes; ++pass) {
    bench::ServerWindow server;
    server.OpenLog("0", count);
    opened.push_back(bench::SecondsSince(desktop.LastByteAt()));
    bench::CloseLastWindow();
  }
  bench::ServerWindow server;
  QAbstractItemView& list = server.OpenLog("0", count);
  report.Value(subject + ", last byte to painted", Unit::Seconds, bench::Median(opened), longestPause);
  const double down = LongestFrame([&](PaintWatch& watch) { return Scroll(watch, *list.verticalScrollBar()); });
  const double across = LongestFrame([&](PaintWatch& watch) { return Scroll(watch, *list.horizontalScrollBar()); });
  report.Value(subject + ", longest frame of scrolling", Unit::Seconds, std::max(down, across), longestPause);
  bench::CloseLastWindow();
}

void MeasureSearch(const toolkit::Listbox& list, bench::Report& report) {
  std::vector<double> slowest;
  std::vector<double> floor;
  for (int pass = 0; pass < passes; ++pass) {
    double longest = 0;
    for (const std::string_view text : {"no line has this", "ORDERS", "e", "zoë grünwald"}) {
      longest = std::max(longest, bench::SecondsOf([&] { (void)toolkit::RowsContaining(list, text); }));
    }
    slowest.push_back(longest);
    std::size_t found = 0;
    floor.push_back(bench::SecondsOf([&] {
      for (int row = 0; row < list.ListCount(); ++row) {
        found += list.Cell(row, 0).find("no line has this") == std::string_view::npos ? 0U : 1U;
      }
    }));
    if (found != 0) throw std::logic_error("a line has what none was to have");
  }
  report.Value("search in 1,000,000 rows, slowest of four texts", Unit::Seconds, bench::Median(slowest),
               {"string_view::find", bench::Median(floor)}, longestSearch);
}

void MeasureManyRows(Desktop& desktop, const std::string& reply, bench::Report& report) {
  desktop.Answer("/api/v1/containers/logs", std::make_shared<std::string>(reply));
  bench::ServerWindow server;
  QAbstractItemView& list = server.OpenLog("0", manyLines);
  report.Value("scrolling 1,000,000 rows, longest frame", Unit::Seconds,
               LongestFrame([&](PaintWatch& watch) { return Scroll(watch, *list.verticalScrollBar()); }), longestFrame);
  report.Value("keys in 1,000,000 rows, longest frame", Unit::Seconds,
               LongestFrame([&](PaintWatch& watch) { return PressKeys(watch, list); }), longestFrame);
  report.Value("resizing with 1,000,000 rows, longest frame", Unit::Seconds,
               LongestFrame([&](PaintWatch& watch) { return ResizeWindow(watch, *list.window()); }), longestFrame);
  const auto window = std::dynamic_pointer_cast<wContainerLogs>(desktop.OpenWindows().back());
  MeasureSearch(window->list_logs, report);
  window->Close();
}

void MeasureContainers(Desktop& desktop, const std::string& reply, const std::string& subject, bench::Report& report) {
  desktop.Answer("/api/v1/containers/list", std::make_shared<std::string>(reply));
  bench::ServerWindow server;
  PaintWatch watch("list_containers");
  watch.ExpectRows(manyContainers);
  std::vector<double> shown;
  std::vector<double> parsed;
  std::vector<double> painted;
  for (int refresh = 0; refresh <= refreshes; ++refresh) {
    server.Window().btn_containers_refresh.Press();
    watch.Wait();
    const double seconds = bench::SecondsSince(desktop.LastByteAt());
    const double floor = bench::SecondsToParse(reply);
    const double frame = watch.SecondsToPaint([&] { watch.Painted()->viewport()->update(); });
    if (refresh == 0) continue;
    shown.push_back(seconds);
    parsed.push_back(floor);
    painted.push_back(frame);
  }
  report.Ratio(subject, Unit::Seconds, bench::Median(shown), {"Boost.JSON", bench::Median(parsed)}, 3);
  report.Note("  of which painting alone", bench::Readable(Unit::Seconds, bench::Median(painted)));
}

void MeasureOpening(bench::Report& report) {
  PaintWatch watch("list_overview");
  std::vector<double> opened;
  for (int opening = 0; opening <= openings; ++opening) {
    std::shared_ptr<wServer> window;
    const double seconds = watch.SecondsToPaint([&] {
      window = std::make_shared<wServer>(bench::AddedServer());
      window->Show();
    });
    if (opening > 0) opened.push_back(seconds);
    Desktop::RunUntil([&] { return window->list_containers.ListCount() > 0; });
    window.reset();
    bench::CloseLastWindow();
  }
  report.Value("opening a server window", Unit::Seconds, bench::Median(opened), longestOpening);
}

int Measure(int argc, char** argv) {
  const bench::VirtualScreen screen;
  Desktop desktop(argc, argv);
  bench::CurlConnection curl;
  const bench::PanelService service({"--log-lines", std::to_string(manyLines)});
  const bench::PanelService largeFleet({"--containers", std::to_string(manyContainers)});
  bench::AnswerOpening(desktop, curl, service);
  const std::string log = curl.Post(service.BaseURL() + "/api/v1/containers/logs", bench::LogRequestBody(0)).Body;
  const std::string containers = curl.Post(largeFleet.BaseURL() + "/api/v1/containers/list", bench::RequestBody()).Body;

  bench::Report report;
  MeasureOpening(report);
  MeasureContainers(desktop, containers, "10,000 containers, last byte to painted", report);
  MeasureLongLines(desktop, report, "one log line of 1 MB", 1, 1'000'000);
  MeasureLongLines(desktop, report, "100 log lines of 100 kB", 100, 100'000);
  MeasureManyRows(desktop, log, report);
  // The heap has grown by now, so both are faster, and the work other than parsing has a larger share.
  MeasureContainers(desktop, containers, "10,000 containers again, after the long log", report);
  return report.Status();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Measure(argc, argv);
  } catch (const std::exception& exception) {
    std::cerr << "bench-lists: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
