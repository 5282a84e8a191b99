// The round trip of a small request on a kept connection, against libcurl on the same service.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
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

constexpr int rounds = 2000;
constexpr int warmUps = 100;

/// A button of the service that can be pressed repeatedly.
class Button {
 public:
  explicit Button(std::string url) : url_(std::move(url)) {
    client_.ButtonPressed = [this] { repliedAt_ = bench::Clock::now(); };
    client_.Error = [](const toolkit::RuntimeException& error) { throw error; };
  }

  /// The seconds from a press to its reply.
  double Press() {
    repliedAt_.reset();
    const auto pressedAt = bench::Clock::now();
    client_.Operator_Lookup("username", bench::PanelService::user);
    client_.Operator_Lookup("password", bench::PanelService::password);
    client_.PressButton(url_, "information");
    Desktop::RunUntil([this] { return repliedAt_.has_value(); });
    return bench::Duration(*repliedAt_ - pressedAt).count();
  }

 private:
  std::string url_;
  TessenServicesClient client_;
  std::optional<bench::Clock::time_point> repliedAt_;
};

int Measure(int argc, char** argv) {
  const bench::PanelService service = bench::ServiceElsewhere();
  const bench::OnProcessor here(0);
  Desktop desktop(argc, argv);
  Button button(service.BaseURL() + "/api/v1/system");
  bench::CurlConnection curl;
  const std::string url = service.BaseURL() + "/api/v1/system/information";
  // The client also sends the members of its last reply, so the floor does too.
  const std::string last = curl.Post(url, bench::RequestBody()).Body;
  const std::string body = bench::RequestBody(last.substr(1, last.size() - 2));

  std::vector<double> ofClient;
  std::vector<double> ofCurl;
  for (int round = -warmUps; round < rounds; ++round) {
    const double pressed = button.Press();
    const double posted = bench::SecondsOf([&] { curl.Post(url, body); });
    if (round < 0) continue;
    ofClient.push_back(pressed);
    ofCurl.push_back(posted);
  }
  bench::Report report;
  report.Ratio("round trip of a request on a kept connection", bench::Unit::Seconds, bench::Median(ofClient),
               {"libcurl, keep-alive", bench::Median(ofCurl)}, 1.25);
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
