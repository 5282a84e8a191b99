// Installs an update without a user, on real files: the content of the archive replaces this program. Prints each error
// that a user would see, and "ready" when it only has to end. Arguments: the address of the archive, its hash, the name
// of the executable in it. When the install script starts it again, it only writes a file.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string_view>

#include <QApplication>
#include <QDialog>
#include <QPlainTextEdit>
#include <QTimer>

#include "shell/App.h"
#include "shell/Product.h"
#include "toolkit/Process.h"
#include "toolkit/qt/QtPlatform.h"
#include "update/install/KajuUpdateWindow.h"

namespace {

using Stage = KajuUpdateWindow::Stage;

Kaju::Offers OfferOf(char** arguments) {
  const boost::json::object binary{{"URL", arguments[1]}, {"Hash", arguments[2]}, {"ExecutableName", arguments[3]}};
  const toolkit::JSONItem offer = boost::json::object{{"AppName", "A"}, {"Version", "9"}, {"LinuxBinary64bit", binary}};
  return {std::make_shared<Kaju::UpdateInformation>(offer)};
}

void ReadMessage() {
  const QWidget* box = QApplication::activeModalWidget();
  if (box == nullptr) return;
  std::cout << "message " << box->findChild<QPlainTextEdit*>("message")->toPlainText().toStdString() << std::endl;
  QMetaObject::invokeMethod(QApplication::activeModalWidget(), "reject", Qt::QueuedConnection);
}

}  // namespace

int main(int argc, char** argv) {
  if (std::string_view(argv[1]).starts_with("--kaju")) {
    std::ofstream(std::string(argv[0]) + ".started") << "old " << argv[1];
    return EXIT_SUCCESS;
  }
  toolkit::SetUpProcess();
  toolkit::qt::QtPlatform platform(product::program, argc, argv);
  App app(product::version);
  QTimer reader;
  QObject::connect(&reader, &QTimer::timeout, ReadMessage);
  reader.start(20);
  return app.Run([&] {
    const auto window = KajuUpdateWindow::Shared();
    window->ChooseUpdate(std::make_shared<Kaju::UpdateChecker>(app.KajuPrefFolder(), "prefs"), OfferOf(argv));
    window->btnOK.Press();
    platform.RunEventsUntil([&] { return window->CurrentStage > Stage::Installing; });
    const bool isReady = window->CurrentStage == Stage::AskingToQuit;
    std::cout << (isReady ? "ready" : "error " + window->lblInstallMessage.Text()) << std::endl;
    isReady ? window->btnOK.Press() : window->btnCancel.Press();
  });
}
