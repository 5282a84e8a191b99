#pragma once

#include <array>

#include "toolkit/Localization.h"

/// The texts that the desktop's own parts show: buttons without a caption, menus, and what a screen reader says of
/// signs.
namespace DesktopTexts {

// clang-format off
inline constexpr toolkit::LocalizedText kCancelButton{"DesktopTexts.kCancelButton", "Cancel"};
inline constexpr toolkit::LocalizedText kCautionSign{"DesktopTexts.kCautionSign", "Caution"};
inline constexpr toolkit::LocalizedText kCopyCommand{"DesktopTexts.kCopyCommand", "Copy"};
inline constexpr toolkit::LocalizedText kNoButton{"DesktopTexts.kNoButton", "No"};
inline constexpr toolkit::LocalizedText kOKButton{"DesktopTexts.kOKButton", "OK"};
inline constexpr toolkit::LocalizedText kSelectAllCommand{"DesktopTexts.kSelectAllCommand", "Select All"};

inline constexpr std::array All{kCancelButton, kCautionSign, kCopyCommand, kNoButton, kOKButton, kSelectAllCommand};
// clang-format on

}  // namespace DesktopTexts
