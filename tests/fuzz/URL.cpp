// An address from a document, with or without credentials.

#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "update/check/HTTPSSocket.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  platform.Requests.clear();
  platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, "x"); };
  Kaju::HTTPSSocket socket;
  Require(socket.Get(std::string(input), 5) == "x", "a request is sent");
  const std::string& url = platform.LastRequest().Request.URL;
  Require(url.starts_with(socket.Secure ? "https://" : "http://"), "the scheme follows the connection");
  const bool isLogin = input.starts_with("http://u:s3cret@") && input.find("s3cret", 15) == std::string_view::npos;
  Require(!isLogin || url.find("s3cret") == std::string::npos, "credentials do not stay in the address");
}
