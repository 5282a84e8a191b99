#pragma once

#include <array>

#include "toolkit/Localization.h"

// clang-format off
#define DESKTOP_TEXTS(TEXT) \
  TEXT(kCancelButton, "Cancel") \
  TEXT(kCautionSign, "Caution") \
  TEXT(kCopyCommand, "Copy") \
  TEXT(kCopyLinkCommand, "Copy Link Address") \
  TEXT(kNoButton, "No") \
  TEXT(kOKButton, "OK") \
  TEXT(kPageIsCutNotice, "The rest of this page is not shown.") \
  TEXT(kSelectAllCommand, "Select All")
// clang-format on

/// The texts of the toolkit's own widgets: buttons without a caption, menus, notices, and accessible names of icons.
namespace DesktopTexts {

#define DESKTOP_CONSTANT(name, english) inline constexpr toolkit::LocalizedText name{"DesktopTexts." #name, english};
DESKTOP_TEXTS(DESKTOP_CONSTANT)
#undef DESKTOP_CONSTANT

#define DESKTOP_NAME(name, english) name,
inline constexpr std::array All{DESKTOP_TEXTS(DESKTOP_NAME)};
#undef DESKTOP_NAME

}  // namespace DesktopTexts

#undef DESKTOP_TEXTS
