// A log of a million lines, from the service to the screen: time, growth and memory.
//
// The service's own time is not counted: receiving begins with the first header, showing with the last byte.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "service/TessenServicesClient.h"
#include "support/CurlConnection.h"
#include "support/Desktop.h"
#include "support/JSONFloor.h"
#include "support/Measure.h"
#include "support/Memory.h"
#include "support/PanelService.h"
#include "support/Report.h"
#include "support/ServerWindow.h"
#include "support/VirtualScreen.h"

namespace {

using bench::Clock;
using bench::Desktop;
using bench::Readable;
using bench::Unit;

constexpr int manyLines = 1'000'000;
constexpr int rounds = 5;
constexpr int repeatedRequests = 10;
// How much the peak may grow after the first request: variation of the allocator.
constexpr double tolerableGrowth = 1.05;

double SecondsToReceive(Desktop& desktop, const std::string& baseURL) {
  TessenServicesClient client;
  bool isDone = false;
  Clock::time_point end;
  client.ButtonPressed = [&] {
    end = Clock::now();
    isDone = true;
  };
  client.Error = [](const toolkit::RuntimeException& error) { throw error; };
  client.Operator_Lookup("username", bench::PanelService::user);
  client.Operator_Lookup("password", bench::PanelService::password);
  client.Operator_Lookup("containerName", std::string_view("web"));
  client.Operator_Lookup("logCount", std::string_view("0"));
  client.PressButton(baseURL + "/api/v1/containers", "logs");
  Desktop::RunUntil([&] { return isDone; });
  return bench::Duration(end - desktop.HeadersAt()).count();
}

double SecondsOfCurl(bench::CurlConnection& curl, const std::string& baseURL) {
  const auto reply = curl.Post(baseURL + "/api/v1/containers/logs", bench::LogRequestBody(0));
  const double received = bench::SecondsSince(reply.HeadersAt);
  return received + bench::SecondsToParse(reply.Body);
}

void MeasureReceiving(Desktop& desktop, bench::CurlConnection& curl, const std::string& baseURL,
                      bench::Report& report) {
  const bench::OnProcessor here(0);
  std::vector<double> ofClient;
  std::vector<double> ofCurl;
  for (int round = 0; round <= rounds; ++round) {
    const double client = SecondsToReceive(desktop, baseURL);
    const double floor = SecondsOfCurl(curl, baseURL);
    if (round == 0) continue;
    ofClient.push_back(client);
    ofCurl.push_back(floor);
  }
  report.Ratio("1,000,000 log lines received and parsed", Unit::Seconds, bench::Median(ofClient),
               {"libcurl, then Boost.JSON", bench::Median(ofCurl)}, 1.15);
}

struct Shown {
  double Seconds = 0;
  double ParseSeconds = 0;
};

Shown MeasureShowing(Desktop& desktop, const std::shared_ptr<const std::string>& body, int lines) {
  desktop.Answer("/api/v1/containers/logs", body);
  std::vector<double> shown;
  std::vector<double> parsed;
  bench::ServerWindow server;
  for (int round = 0; round <= rounds; ++round) {
    server.OpenLog(std::to_string(lines), lines);
    const double seconds = bench::SecondsSince(desktop.LastByteAt());
    bench::CloseLastWindow();
    const double floor = bench::SecondsToParse(*body);
    if (round == 0) continue;
    shown.push_back(seconds);
    parsed.push_back(floor);
  }
  return {.Seconds = bench::Median(shown), .ParseSeconds = bench::Median(parsed)};
}

void MeasureGrowth(Desktop& desktop, bench::CurlConnection& curl, const std::string& baseURL, bench::Report& report) {
  Shown last;
  Shown before;
  for (int lines = 1000; lines <= manyLines; lines *= 10) {
    const auto reply = curl.Post(baseURL + "/api/v1/containers/logs", bench::LogRequestBody(lines));
    before = std::exchange(last, MeasureShowing(desktop, std::make_shared<std::string>(reply.Body), lines));
    report.Note("  " + std::to_string(lines) + " log lines, last byte to painted",
                Readable(Unit::Seconds, last.Seconds) + ", " + Readable(Unit::Seconds, last.Seconds / lines) +
                    " a line; Boost.JSON " + Readable(Unit::Seconds, last.ParseSeconds / lines) + " a line");
  }
  report.Ratio("1,000,000 log lines, last byte to painted", Unit::Seconds, last.Seconds,
               {"Boost.JSON", last.ParseSeconds}, 2);
  // The floor grows faster than the number of lines, since small replies fit the processor's caches.
  report.Ratio("growth from 100,000 lines to 1,000,000", Unit::Times, last.Seconds / before.Seconds,
               {"Boost.JSON", last.ParseSeconds / before.ParseSeconds}, 1.25);
}

// Runs in its own process, whose memory is that of the program.
void RequestLogs(Desktop& desktop, const std::string& baseURL, int requests) {
  desktop.RedirectTo(baseURL);
  bench::ServerWindow server;
  for (int request = 0; request < requests; ++request) {
    server.OpenLog("0", manyLines);
    bench::CloseLastWindow();
    std::cout << bench::PeakMemory() << std::endl;
  }
}

void MeasureMemory(const std::string& self, const std::string& baseURL, double bodySize, bench::Report& report) {
  bench::ChildProcess program({self, "--requests", std::to_string(repeatedRequests), baseURL});
  std::vector<double> peaks;
  peaks.reserve(repeatedRequests);
  for (int request = 0; request < repeatedRequests; ++request) peaks.push_back(std::stod(program.ReadLine()));
  program.Wait();
  report.Ratio("peak memory, one request for 1,000,000 lines", Unit::Bytes, peaks.front(),
               {"the reply's body", bodySize}, 4.5);
  report.Note("  peak memory after the second request", Readable(Unit::Bytes, peaks[1]));
  report.Ratio("peak memory after ten requests", Unit::Bytes, peaks.back(), {"after the first", peaks.front()},
               tolerableGrowth);
}

int Measure(int argc, char** argv) {
  const bench::PanelService service = bench::ServiceElsewhere({"--log-lines", std::to_string(manyLines)});
  const bench::VirtualScreen screen;
  bench::Report report;
  bench::CurlConnection curl;
  const std::string& baseURL = service.BaseURL();
  const auto bodySize = curl.Post(baseURL + "/api/v1/containers/logs", bench::LogRequestBody(0)).Body.size();
  MeasureMemory(bench::BuiltProgram("bench-large-reply"), baseURL, static_cast<double>(bodySize), report);

  Desktop desktop(argc, argv);
  MeasureReceiving(desktop, curl, baseURL, report);
  bench::AnswerOpening(desktop, curl, service);
  MeasureGrowth(desktop, curl, baseURL, report);
  return report.Status();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() != 3 || arguments[0] != "--requests") return Measure(argc, argv);
    Desktop desktop(argc, argv);
    RequestLogs(desktop, arguments[2], std::stoi(arguments[1]));
    return EXIT_SUCCESS;
  } catch (const std::exception& exception) {
    std::cerr << "bench-large-reply: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
