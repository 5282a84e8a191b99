#pragma once

#include <array>

#include "toolkit/Localization.h"

// clang-format off
#define DESKTOP_TEXTS(TEXT) \
  TEXT(kCancelButton, "Cancel") \
  TEXT(kCautionSign, "Caution") \
  TEXT(kCopyCommand, "Copy") \
  TEXT(kCopyLinkCommand, "Copy Link Address") \
  TEXT(kNoBrowserMessage, "This desktop has no browser to open the address with:") \
  TEXT(kNoButton, "No") \
  TEXT(kNoTemporaryFileMessage, "No temporary file can be made at <<Path>>: <<Reason>>.") \
  TEXT(kNoTemporaryFolderMessage, "No temporary folder can be made at <<Path>>: <<Reason>>.") \
  TEXT(kOKButton, "OK") \
  TEXT(kPageIsCutNotice, "The rest of this page is not shown.") \
  TEXT(kSelectAllCommand, "Select All") \
  TEXT(kTextIsCutNotice, "<<Count>> more characters are not shown")
// clang-format on

/// The texts of the toolkit's own widgets: buttons without a caption, menus, notices, and accessible names of icons;
/// and its messages that the update window may show.
namespace DesktopTexts {

#define DESKTOP_CONSTANT(name, english) inline constexpr toolkit::LocalizedText name{"DesktopTexts." #name, english};
DESKTOP_TEXTS(DESKTOP_CONSTANT)
#undef DESKTOP_CONSTANT

#define DESKTOP_NAME(name, english) name,
inline constexpr std::array all{DESKTOP_TEXTS(DESKTOP_NAME)};
#undef DESKTOP_NAME

}  // namespace DesktopTexts

#undef DESKTOP_TEXTS
