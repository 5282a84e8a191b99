#pragma once

#include <QString>

#include "tour/Publisher.h"
#include "tour/Step.h"

namespace tour {

/// The server that is visited.
struct Visit {
  QString Host;
  QString User;
  QString Password;
};

/// Shows each window of the program in the states that are worth a picture: those of the panel service, which must have
/// its demonstration fleet, and those of the update that `publisher` offers. Installs nothing.
[[nodiscard]] Steps PictureTour(const Visit& visit, Publisher& publisher);

}  // namespace tour
