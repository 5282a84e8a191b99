#pragma once

#include <array>

#include "toolkit/Localization.h"

// clang-format off
#define KAJU_TEXTS(TEXT) \
  TEXT(kBadDownloadMessage, "The downloaded file appears to be corrupted.") \
  TEXT(kBinaryInfoInvalidReason, "Binary information is not valid") \
  TEXT(kCancelButton, "&Cancel") \
  TEXT(kCannotSkipVersionsMessage, "You cannot skip versions until you have updated to version <<Version>> or beyond.") \
  TEXT(kChoose64bitMessage, "The update is only available as 64-bit. Proceed?") \
  TEXT(kChooseBetweenBitsMessage, "This update is also available as 64-bit. Which would you prefer?") \
  TEXT(kCurrenlyUsing32bitMessage, "You are currently using the 32-bit version.") \
  TEXT(kDiskFullMessage, "The disk is full.") \
  TEXT(kDownloadingMessage, "Downloading...") \
  TEXT(kDryRunMessage, "(Dry run, not really installing)") \
  TEXT(kErrorBadUpdateData, "The update data cannot be read.") \
  TEXT(kErrorIncorrectPacketMarker, "The update packet signature marker was incorrect.") \
  TEXT(kErrorIncorrectPacketSignature, "The RSA signature of the update packet cannot be verified.") \
  TEXT(kErrorNoUpdateData, "No update data was available.") \
  TEXT(kErrorOccurredMessage, "An error has occurred. Would you like to try again now or later?") \
  TEXT(kExplain64bitMessage, "Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.") \
  TEXT(kGenericErrorMessage, "An error has occurred.") \
  TEXT(kInstallButton, "Install Update") \
  TEXT(kLaterButton, "Later") \
  TEXT(kMainNotice, "A new version of <<AppName>> is available!") \
  TEXT(kMissingAppNameReason, "Missing app name") \
  TEXT(kMissingReason, "Missing") \
  TEXT(kNoMD5Message, "The file cannot be checked, since MD5 is switched off on this system.") \
  TEXT(kNoProgramMessage, "The update does not contain the program.") \
  TEXT(kNothingStartsMessage, "No program can be started from the temporary folder.") \
  TEXT(kNoUpdateInfoMessage, "NO UPDATE INFORMATION") \
  TEXT(kPaymentRequiredMessage, "This update is not free and will require payment. Proceed anyway?") \
  TEXT(kProceedButton, "Proceed") \
  TEXT(kProcessingFileMessage, "Processing file...") \
  TEXT(kProgressName, "Progress") \
  TEXT(kQuitButton, "Quit && Install") \
  TEXT(kReadyMessage, "Ready to install") \
  TEXT(kReleaseNotesLabel, "Release Notes:") \
  TEXT(kReleaseNotesName, "Release notes") \
  TEXT(kRemindMeLaterButton, "Remind Me Later") \
  TEXT(kScriptNotWrittenMessage, "The install script cannot be written.") \
  TEXT(kSecondaryNoticeMultiple, "You have version <<ThisVersion>> and there are multiple updates available. Install one?") \
  TEXT(kSecondaryNoticeOne, "You have version <<ThisVersion>>. Would you like to install version <<NewVersion>>?") \
  TEXT(kSkipVersionButton, "Skip Version") \
  TEXT(kStopButton, "Stop") \
  TEXT(kThisApplication, "this application") \
  TEXT(kTimedOutMessage, "The operation has timed out.") \
  TEXT(kTryAgainButton, "Try Again") \
  TEXT(kTryLaterButton, "Try Later") \
  TEXT(kUpdateFailedExplanation, "This version goes on. The reason is in the system log, under “Kaju Update Script”.") \
  TEXT(kUpdateFailedMessage, "The update could not be installed.") \
  TEXT(kUpdateGoneMessage, "The unpacked update is no longer there.") \
  TEXT(kUse32bitLabel, "Stay With 32-bit") \
  TEXT(kUse64bitLabel, "Switch To 64-bit") \
  TEXT(kVersionMustBeInFormReason, "Version must be in one of these forms") \
  TEXT(kVersionsLabel, "Available Versions:") \
  TEXT(kVersionsName, "Available versions") \
  TEXT(kWindowTitle, "Update Available")
// clang-format on

/// Every text of the update library that the user sees. A text may contain placeholders such as "<<AppName>>", which
/// the caller replaces; in captions, "&" marks the access key and "&&" is one ampersand.
namespace KajuLocale {

#define KAJU_CONSTANT(name, english) inline constexpr toolkit::LocalizedText name{"KajuLocale." #name, english};
KAJU_TEXTS(KAJU_CONSTANT)
#undef KAJU_CONSTANT

#define KAJU_NAME(name, english) name,
inline constexpr std::array all{KAJU_TEXTS(KAJU_NAME)};
#undef KAJU_NAME

}  // namespace KajuLocale

#undef KAJU_TEXTS
