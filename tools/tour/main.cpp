// Plays Corvane as a user would, and takes pictures of its windows.

#include <algorithm>
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
#include "tour/PictureTour.h"
#include "tour/Player.h"
#include "tour/Publisher.h"

namespace {

constexpr int usageStatus = 2;

constexpr const char* usage =
    "Usage: corvane-tour --output FOLDER --host HOST --user NAME --password PASSWORD [--look light|dark|double]\n\n"
    "Plays Corvane against the panel service with a demonstration fleet at HOST, prints a line a step, and leaves\n"
    "pictures of the windows in FOLDER: in a light palette, in a dark one, and at twice the size, or in the one look\n"
    "that is given. Ends with 0 if every step has worked.\n";

struct Look {
  const char* Name = "";
  const char* Suffix = "";
  bool IsDark = false;
  int Scale = 1;
};
constexpr Look looks[] = {{"light", ""}, {"dark", "-dark", true}, {"double", "-200", false, 2}};

struct Options {
  QString Output;
  tour::Visit Visit;
  /// nullptr: all looks.
  const Look* OnlyLook = nullptr;
};

std::optional<Options> Read(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.addOptions({{"output", {}, "FOLDER"},
                     {"host", {}, "HOST"},
                     {"user", {}, "NAME"},
                     {"password", {}, "PASSWORD"},
                     {"look", {}, "NAME"}});
  bool isRead = parser.parse(arguments) && parser.positionalArguments().isEmpty();
  for (const char* needed : {"output", "host", "user", "password"}) isRead = isRead && !parser.value(needed).isEmpty();
  const auto* look = std::ranges::find(looks, parser.value("look"), [](const Look& each) { return each.Name; });
  const bool isKnown = look != std::end(looks);
  if (!isRead || isKnown != parser.isSet("look")) return std::nullopt;
  return Options{parser.value("output"),
                 {parser.value("host"), parser.value("user"), parser.value("password")},
                 isKnown ? look : nullptr};
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
  if (options.OnlyLook->Scale != 1) qputenv("QT_SCALE_FACTOR", QByteArray::number(options.OnlyLook->Scale));
  toolkit::qt::QtPlatform platform(product::program, argumentCount, arguments);
  if (options.OnlyLook->IsDark) QApplication::setPalette(DarkPalette());
  App app(product::version);

  tour::Publisher publisher(toolkit::FolderItem(folders.Scratch().toStdString()));
  tour::Player player(tour::PictureTour(options.Visit, publisher), options.Output, options.OnlyLook->Suffix);
  const int status = app.Run([&] {
    const auto mainWindow = std::make_shared<wMain>(
        [](const std::shared_ptr<CorvaneServer>& server) { std::make_shared<wServer>(server)->Show(); });
    mainWindow->Show();
    player.Start();
  });
  return player.HasPlayedAll() && status == EXIT_SUCCESS;
}

/// Plays each look in its own process, since the scale can only be set when a program starts.
bool PlayAll(QStringList arguments) {
  const QString program = arguments.takeFirst();
  return std::ranges::all_of(looks, [&](const Look& look) {
    std::cout << "Look: " << look.Name << std::endl;
    return QProcess::execute(program, arguments + QStringList{"--look", look.Name}) == EXIT_SUCCESS;
  });
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
  if (!options || !QDir().mkpath(options->Output)) {
    std::cerr << (options ? "corvane-tour: the output folder cannot be made\n" : usage);
    return usageStatus;
  }

  try {
    const bool isGood = options->OnlyLook == nullptr ? PlayAll(arguments) : Play(*options, argc, argv);
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& exception) {
    std::cerr << "corvane-tour: " << exception.what() << std::endl;
    return EXIT_FAILURE;
  }
}
