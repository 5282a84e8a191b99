// The look-up of redirects: the lines of the input are an address, and the "Location" of each reply.

#include <sstream>
#include <string>
#include <vector>

#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/Text.h"
#include "update/check/HTTPSSocket.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  std::vector<std::string> lines;
  std::istringstream text{std::string(input) + '\n'};
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  constexpr std::size_t most = Kaju::HTTPSSocket::kMostRedirects;
  platform.Requests.clear();
  platform.WhileWaiting = [&] {
    const std::size_t reply = platform.Requests.size();
    const std::string location = reply < lines.size() ? lines[reply] : std::string();
    platform.LastRequest().BeginReply(302, {{"Location", location}});
    platform.LastRequest().EndReply();
  };
  Kaju::HTTPSSocket socket;
  const std::string found = socket.GetRedirectAddress(lines.front());

  std::size_t end = 0;
  while (end < most && end + 1 < lines.size() && !lines[end].empty() && !lines[end + 1].empty()) ++end;
  Require(found == toolkit::Trim(lines[end]), "the look-up ends at the first reply that leads nowhere");
  Require(platform.Requests.size() <= most, "it asks five times at most");
  for (const auto& request : platform.Requests) {
    Require(request->Request.Method == "HEAD", "it asks for nothing but headers");
    const bool isWeb = request->Request.URL.starts_with("http://") || request->Request.URL.starts_with("https://");
    Require(isWeb, "it asks nobody but web servers");
  }
}
