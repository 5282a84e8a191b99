#pragma once

#include "toolkit/Localization.h"

namespace Kaju {

using toolkit::LocalizedText;

}  // namespace Kaju
