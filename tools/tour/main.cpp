// Plays Corvane as a user would, prints what it does, and takes pictures of the windows.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPalette>
#include <QProcess>

#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/Product.h"
#include "toolkit/Process.h"
#include "toolkit/qt/DecoderProgram.h"
#include "toolkit/qt/QtPlatform.h"
#include "tour/OwnFolders.h"
#include "tour/Player.h"
#include "tour/Publisher.h"
#include "tour/Tours.h"

namespace {

constexpr int usageStatus = 2;

constexpr const char* usage =
    "Usage: corvane-tour --output FOLDER --host HOST --user NAME --password PASSWORD [--dark] [--scale FACTOR]\n\n"
    "Plays Corvane against the panel service at HOST, prints a line a step, and leaves pictures of the windows in\n"
    "FOLDER; then once more in a dark palette, and at twice the size, for pictures only. Ends with 0 if every step\n"
    "has worked. With --dark or --scale (1 to 4) it only takes those pictures.\n";

struct Options {
  QString output;
  tour::Visit visit;
  bool dark = false;
  int scale = 1;

  [[nodiscard]] bool IsForPictures() const { return dark || scale != 1; }
  [[nodiscard]] QString Suffix() const {
    return QString(dark ? "-dark" : "") + (scale == 1 ? QString() : QStringLiteral("-%1").arg(100 * scale));
  }
};

std::optional<Options> Read(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.addOptions({{"output", {}, "FOLDER"},
                     {"host", {}, "HOST"},
                     {"user", {}, "NAME"},
                     {"password", {}, "PASSWORD"},
                     {"dark", {}},
                     {"scale", {}, "FACTOR", "1"}});
  bool isRead = parser.parse(arguments) && parser.positionalArguments().isEmpty();
  for (const char* needed : {"output", "host", "user", "password"}) isRead = isRead && !parser.value(needed).isEmpty();
  const Options options{parser.value("output"),
                        {parser.value("host"), parser.value("user"), parser.value("password")},
                        parser.isSet("dark"),
                        parser.value("scale").toInt()};
  if (!isRead || options.scale < 1 || options.scale > 4) return std::nullopt;
  return options;
}

QPalette DarkPalette() {
  const QColor text(230, 230, 230);
  QPalette palette(QColor(53, 53, 58), QColor(45, 45, 50));
  palette.setColor(QPalette::Base, QColor(30, 30, 34));
  palette.setColor(QPalette::Highlight, QColor(42, 110, 170));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, QColor(125, 125, 125));
  }
  return palette;
}

/// Plays in this process. Returns whether every step has worked.
bool Play(const Options& options, int& argumentCount, char** arguments) {
  const tour::OwnFolders folders;
  toolkit::qt::QtPlatform platform(product::program, argumentCount, arguments);
  if (options.dark) QApplication::setPalette(DarkPalette());
  App app(product::version);

  tour::Publisher publisher(toolkit::FolderItem(folders.Scratch().toStdString()));
  tour::Player player(
      options.IsForPictures() ? tour::PictureTour(options.visit, publisher) : tour::FullTour(options.visit, publisher),
      options.output, options.Suffix());
  const int status = app.Run([&] {
    const auto mainWindow = std::make_shared<wMain>(
        [](const std::shared_ptr<CorvaneServer>& server) { std::make_shared<wServer>(server)->Show(); });
    mainWindow->Show();
    player.Start();
  });
  return player.Finish() && status == EXIT_SUCCESS;
}

/// Plays in a process of its own, for what a program can be told only at its start.
bool PlayAgain(QStringList arguments, const QStringList& more) {
  const QString program = arguments.takeFirst();
  return QProcess::execute(program, arguments + more) == EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toolkit::qt::DecodeIfAsked(argc, argv)) return *status;
  toolkit::SetUpProcess();
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  if (arguments.contains("--help")) {
    std::cout << usage;
    return EXIT_SUCCESS;
  }
  const std::optional<Options> options = Read(arguments);
  if (!options || !QDir().mkpath(options->output)) {
    std::cerr << (options ? "corvane-tour: the output folder cannot be made\n" : usage);
    return usageStatus;
  }
  if (options->scale != 1) qputenv("QT_SCALE_FACTOR", QByteArray::number(options->scale));

  try {
    bool isGood = Play(*options, argc, argv);
    if (isGood && !options->IsForPictures()) {
      std::cout << "In a dark palette:" << std::endl;
      isGood = PlayAgain(arguments, {"--dark"});
      std::cout << "At twice the size:" << std::endl;
      isGood = PlayAgain(arguments, {"--scale", "2"}) && isGood;
    }
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& exception) {
    std::cerr << "corvane-tour: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
