#include "update/check/HTTPSSocket.h"

#include "toolkit/RegEx.h"
#include "toolkit/Text.h"

namespace Kaju {

std::string HTTPSSocket::GetRedirectAddress(std::string url, int timeoutSeconds, int maximumIterations) {
  while (!url.empty()) {
    const auto headers = GetHeaders(url, timeoutSeconds);
    const std::string location = headers ? headers->Value("Location") : std::string();
    if (location.empty()) break;
    url = location;
    if (--maximumIterations == 0) break;
  }
  return std::string(toolkit::Trim(url));
}

void HTTPSSocket::SetSecure(std::string& url) {
  Secure = ForceSecure || toolkit::StartsWithIgnoringCase(toolkit::Trim(url), "https://");
  Port = Secure ? portOfHTTPS : portOfHTTP;
  if (url.find('@') == std::string::npos) return;  // avoids compiling the pattern at the start of the program
  static const toolkit::RegEx withCredentials(R"(^(?:https?://)([^:/\x20@]+):([^:/\x20@]*)@(.*))");
  const auto match = withCredentials.Search(url);
  if (!match) return;
  username_ = toolkit::DecodeURLComponent(match->SubExpression(1));
  password_ = toolkit::DecodeURLComponent(match->SubExpression(2));
  url = std::string(match->SubExpression(3));
}

bool HTTPSSocket::Event_AuthenticationRequired(const std::string& realm, const toolkit::InternetHeaders& headers,
                                               std::string& name, std::string& password) {
  if (AuthenticationRequired(realm, headers, name, password)) return true;
  if (username_.empty()) return false;
  name = username_;
  password = password_;
  return true;
}

}  // namespace Kaju
