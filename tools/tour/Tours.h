#pragma once

#include <QString>

#include "tour/Publisher.h"
#include "tour/Step.h"

/// What is played. Each part goes on where the one before it has ended.
namespace tour {

/// The server that is visited.
struct Visit {
  QString host;
  QString user;
  QString password;
};

inline const QString mainTitle = QStringLiteral("Corvane");
inline const QString serverTitle = QStringLiteral("Corvane - Server Control Panel");
inline const QString updateTitle = QStringLiteral("Update Available");
inline const QString logTitle = QStringLiteral("Corvane - Container Logs");

/// The main window, up to a server in its list.
[[nodiscard]] Steps MainWindowSteps(const Visit& visit);
/// The update window: what `publisher` offers, up to an update that is ready; nothing is ever installed.
[[nodiscard]] Steps UpdateSteps(Publisher& publisher);
/// A server's window and its tab "Overview".
[[nodiscard]] Steps OverviewSteps();
/// Its tab "Containers".
[[nodiscard]] Steps ContainerSteps();
/// Log windows.
[[nodiscard]] Steps LogSteps();
/// The reboot of the server, cancelled and confirmed.
[[nodiscard]] Steps RebootSteps();
/// Several windows, and the end of the program.
[[nodiscard]] Steps ClosingSteps();

/// Everything.
[[nodiscard]] Steps FullTour(const Visit& visit, Publisher& publisher);
/// The update window's states, for their pictures.
[[nodiscard]] Steps UpdatePictureSteps(Publisher& publisher);
/// Each window once, for its picture.
[[nodiscard]] Steps PictureTour(const Visit& visit, Publisher& publisher);

}  // namespace tour
