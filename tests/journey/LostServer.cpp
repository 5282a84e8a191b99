// The program's client of the panel service, pressed by hand. A line on the standard input presses the button of a
// service: "NAME URL [BYTES]". Each name has a client of its own, and BYTES make its request so much larger. A line of
// output tells how it ended, after how many seconds: "NAME replied SECONDS", "NAME refused SECONDS MESSAGE" where the
// service said no, or "NAME failed SECONDS MESSAGE" where no reply came. The end of the input ends the program.
// Arguments: user name, password.

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

class Presser {
 public:
  explicit Presser(std::array<std::string_view, 2> credentials) : credentials_(credentials) {}

  /// Returns whether there may be more to read.
  bool ReadCommands() {
    std::array<char, 4096> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) return false;
    input_.append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = 0; (end = input_.find('\n')) != std::string::npos; input_.erase(0, end + 1)) {
      Obey(std::istringstream(input_.substr(0, end)));
    }
    return true;
  }

 private:
  struct Client {
    TessenServicesClient Service;
    std::chrono::steady_clock::time_point PressedAt;
  };

  void Obey(std::istringstream command) {
    std::string name;
    std::string url;
    std::size_t extra = 0;
    command >> name >> url >> extra;
    Client& client = clients_[name];
    TessenServicesClient& service = client.Service;
    service.ButtonPressed = [name, &client] { Tell(name, "replied", client, ""); };
    service.Error = [name, &client](const toolkit::RuntimeException& error) {
      Tell(name, client.Service.LastFault() ? "failed" : "refused", client, error.Message());
    };
    service.Operator_Lookup("username", credentials_[0]);
    service.Operator_Lookup("password", credentials_[1]);
    service.Operator_Lookup("extra", std::string(extra, 'x'));
    client.PressedAt = std::chrono::steady_clock::now();
    service.PressButton(url + "/api/v1/system", "information");
  }

  static void Tell(const std::string& name, std::string_view end, const Client& client, const std::string& message) {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - client.PressedAt;
    std::cout << name << ' ' << end << ' ' << std::fixed << std::setprecision(2) << taken.count() << ' ' << message
              << std::endl;
  }

  std::array<std::string_view, 2> credentials_;
  std::map<std::string, Client> clients_;
  std::string input_;
};

}  // namespace

int main(int argc, char** argv) {
  toolkit::qt::QtPlatform platform({.Name = "Lost server", .Id = "corvane"}, argc, argv);
  Presser presser({argv[1], argv[2]});
  QSocketNotifier commands(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&commands, &QSocketNotifier::activated, [&] {
    if (!presser.ReadCommands()) platform.Quit(EXIT_SUCCESS);
  });
  return platform.RunLoop([] {});
}
