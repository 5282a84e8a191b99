// The round trip of a small request on a kept connection, against libcurl on the same service.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "service/TessenServicesClient.h"
#include "support/CurlConnection.h"
#include "support/Desktop.h"
#include "support/Measure.h"
#include "support/PanelService.h"
#include "support/Report.h"
#include "support/VirtualScreen.h"

namespace {

using bench::Desktop;

constexpr int rounds = 20;
constexpr int requestsOfRound = 100;

/// Presses one button over and over, the next time as soon as the reply is there.
class Requests {
 public:
  explicit Requests(std::string url) : url_(std::move(url)) {
    client_.ButtonPressed = [this] {
      seconds_.push_back(bench::SecondsSince(pressedAt_));
      if (--left_ > 0) Press();
    };
    client_.Error = [](const toolkit::RuntimeException& error) { throw error; };
  }

  /// The seconds that each of `count` requests took.
  std::vector<double> Make(int count) {
    seconds_.clear();
    left_ = count;
    Press();
    Desktop::RunUntil([this] { return left_ == 0; });
    return seconds_;
  }

 private:
  void Press() {
    pressedAt_ = bench::Clock::now();
    client_.Operator_Lookup("username", bench::PanelService::User);
    client_.Operator_Lookup("password", bench::PanelService::Password);
    client_.PressButton(url_, "information");
  }

  std::string url_;
  TessenServicesClient client_;
  bench::Clock::time_point pressedAt_;
  std::vector<double> seconds_;
  int left_ = 0;
};

int Measure(int argc, char** argv) {
  const bench::PanelService service;
  Desktop desktop(argc, argv);
  Requests requests(service.BaseURL() + "/api/v1/system");
  bench::CurlConnection curl;
  const std::string url = service.BaseURL() + "/api/v1/system/information";
  // The client sends the members of its last reply along, so the floor does too.
  const std::string last = curl.Post(url, bench::RequestBody()).Body;
  const std::string body = bench::RequestBody(last.substr(1, last.size() - 2));

  std::vector<double> ofClient;
  std::vector<double> ofCurl;
  for (int round = 0; round <= rounds; ++round) {
    const bool isWarm = round > 0;
    for (const double seconds : requests.Make(requestsOfRound)) {
      if (isWarm) ofClient.push_back(seconds);
    }
    for (int request = 0; request < requestsOfRound; ++request) {
      const double seconds = bench::SecondsOf([&] { curl.Post(url, body); });
      if (isWarm) ofCurl.push_back(seconds);
    }
  }
  bench::Report report;
  report.Ratio("round trip of a request on a kept connection", bench::Unit::Seconds, bench::Median(ofClient),
               {"libcurl, keep-alive", bench::Median(ofCurl)}, 2.5);
  return report.Status();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const bench::VirtualScreen screen;
    return Measure(argc, argv);
  } catch (const std::exception& exception) {
    std::cerr << "bench-round-trip: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
