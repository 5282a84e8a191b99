// The program as it starts, with the facts of the test: prints what it offers and the result of its check, and ends.
// Argument: after how many milliseconds to quit without waiting for the result.

#include <cstdlib>
#include <iostream>

#include <QTimer>

#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/Product.h"
#include "toolkit/qt/QtPlatform.h"

namespace {

constexpr int earlyStatus = 7;

class Printer final : public Kaju::UpdatePresenter {
 public:
  [[nodiscard]] bool IsOpen() const override { return false; }
  void ChooseUpdate(const std::shared_ptr<Kaju::UpdateChecker>& /*checker*/, Kaju::Offers offers) override {
    for (const auto& offer : offers) std::cout << "offer " << offer->Version << '\n';
  }
};

}  // namespace

int main(int argc, char** argv) {
  toolkit::qt::QtPlatform platform(argc, argv);
  App app(product::version);
  auto window = std::make_shared<wMain>(nullptr, std::make_shared<Printer>());
  const auto isChecked = [&] {
    return window->pKaju && window->pKaju->Result() != Kaju::UpdateChecker::ResultType::NotYetChecked;
  };
  bool quitsEarly = false;
  const int status = app.Run([&] {
    if (argc > 1) {
      QTimer::singleShot(std::atoi(argv[1]), [&] {
        quitsEarly = true;
        platform.Quit(earlyStatus);
      });
    }
    window->Show();
    platform.RunEventsUntil(isChecked);
    if (quitsEarly) return;
    std::cout << "result " << static_cast<int>(window->pKaju->Result()) << '\n';
    platform.Quit(EXIT_SUCCESS);
  });
  window = nullptr;
  return status;
}
