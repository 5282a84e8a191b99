// The first line is an address from a document, with or without credentials; each further one is the "Location" of a
// reply.

#include <sstream>
#include <string>

#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "update/check/HTTPSSocket.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  std::istringstream lines{std::string(input)};
  std::string address;
  std::getline(lines, address);
  platform.Requests.clear();
  platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, "x"); };
  Kaju::HTTPSSocket socket;
  Require(socket.Get(address, 5) == "x", "a request is sent");
  const std::string& url = platform.LastRequest().Request.URL;
  Require(url.starts_with(socket.Secure ? "https://" : "http://"), "the scheme follows the connection");
  const bool isLogin = address.starts_with("http://u:s3cret@") && address.find("s3cret", 15) == std::string::npos;
  Require(!isLogin || url.find("s3cret") == std::string::npos, "credentials do not stay in the address");

  platform.Requests.clear();
  platform.WhileWaiting = [&] {
    std::string location;
    std::getline(lines, location);
    platform.LastRequest().BeginReply(302, {{"Location", location}});
    platform.LastRequest().EndReply();
  };
  static_cast<void>(socket.GetRedirectAddress(address));
  Require(platform.Requests.size() <= Kaju::HTTPSSocket::kMostRedirects, "it asks five times at most");
  for (const auto& request : platform.Requests) {
    const bool isWeb = request->Request.URL.starts_with("http://") || request->Request.URL.starts_with("https://");
    Require(isWeb && request->Request.Method == "HEAD", "it asks web servers, for nothing but headers");
  }
}
