// Sends requests with the program's client of the panel service. Each line "NAME URL [BYTES]" on standard input sends
// one by the client of that name; BYTES makes it larger. A line of output says how and after how many seconds it ended:
// "NAME replied SECONDS", "NAME refused SECONDS MESSAGE" if the service refused it, or "NAME failed SECONDS MESSAGE"
// without a reply. Ends at the end of the input. Arguments: user name, password.

#include <array>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

#include <QSocketNotifier>

#include "service/TessenServicesClient.h"
#include "toolkit/qt/QtPlatform.h"

namespace {

struct Client {
  TessenServicesClient Service;
  std::chrono::steady_clock::time_point PressedAt;
};

void Press(std::istringstream command, char** credentials) {
  static std::map<std::string, Client> clients;
  std::string name;
  std::string url;
  std::size_t extra = 0;
  command >> name >> url >> extra;
  Client& client = clients[name];
  const auto tell = [name, &client](std::string_view end, const std::string& message) {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - client.PressedAt;
    std::cout << name << ' ' << end << ' ' << std::fixed << std::setprecision(2) << taken.count() << ' ' << message
              << std::endl;
  };
  client.Service.ButtonPressed = [tell] { tell("replied", ""); };
  client.Service.Error = [tell, &client](const toolkit::RuntimeException& error) {
    tell(client.Service.LastFault() ? "failed" : "refused", error.Message());
  };
  client.Service.Operator_Lookup("username", std::string_view(credentials[0]));
  client.Service.Operator_Lookup("password", std::string_view(credentials[1]));
  client.Service.Operator_Lookup("extra", std::string(extra, 'x'));
  client.PressedAt = std::chrono::steady_clock::now();
  client.Service.PressButton(url + "/api/v1/system", "information");
}

}  // namespace

int main(int argc, char** argv) {
  toolkit::qt::QtPlatform platform({.Name = "Lost server", .Id = "corvane"}, argc, argv);
  QSocketNotifier commands(STDIN_FILENO, QSocketNotifier::Read);
  std::string input;
  QObject::connect(&commands, &QSocketNotifier::activated, [&] {
    std::array<char, 4096> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) return platform.Quit(EXIT_SUCCESS);
    input.append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = 0; (end = input.find('\n')) != std::string::npos; input.erase(0, end + 1)) {
      Press(std::istringstream(input.substr(0, end)), argv + 1);
    }
  });
  return platform.RunLoop([] {});
}
