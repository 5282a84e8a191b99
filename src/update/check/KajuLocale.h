#pragma once

#include <array>

#include "update/check/LocalizedText.h"

/// Every text of the update library that the user sees. A text may hold placeholders such as "<<AppName>>", which the
/// caller replaces; in captions, "&" marks the access key and "&&" stands for one ampersand.
namespace KajuLocale {

// clang-format off
inline constexpr Kaju::LocalizedText kBadDownloadMessage{"KajuLocale.kBadDownloadMessage", "The downloaded file appears to be corrupted."};
inline constexpr Kaju::LocalizedText kBinaryInfoInvalidReason{"KajuLocale.kBinaryInfoInvalidReason", "Binary information is not valid"};
inline constexpr Kaju::LocalizedText kCancelButton{"KajuLocale.kCancelButton", "&Cancel"};
inline constexpr Kaju::LocalizedText kCannotSkipVersionsMessage{"KajuLocale.kCannotSkipVersionsMessage", "You cannot skip versions until you have updated to version <<Version>> or beyond."};
inline constexpr Kaju::LocalizedText kChoose64bitMessage{"KajuLocale.kChoose64bitMessage", "The update is only available as 64-bit. Proceed?"};
inline constexpr Kaju::LocalizedText kChooseBetweenBitsMessage{"KajuLocale.kChooseBetweenBitsMessage", "This update is also available as 64-bit. Which would you prefer?"};
inline constexpr Kaju::LocalizedText kCopyCommand{"KajuLocale.kCopyCommand", "Copy"};
inline constexpr Kaju::LocalizedText kCopyLinkCommand{"KajuLocale.kCopyLinkCommand", "Copy Link Address"};
inline constexpr Kaju::LocalizedText kCurrenlyUsing32bitMessage{"KajuLocale.kCurrenlyUsing32bitMessage", "You are currently using the 32-bit version."};
inline constexpr Kaju::LocalizedText kDownloadingMessage{"KajuLocale.kDownloadingMessage", "Downloading..."};
inline constexpr Kaju::LocalizedText kDryRunMessage{"KajuLocale.kDryRunMessage", "(Dry run, not really installing)"};
inline constexpr Kaju::LocalizedText kErrorBadUpdateData{"KajuLocale.kErrorBadUpdateData", "The update data cannot be read."};
inline constexpr Kaju::LocalizedText kErrorIncorrectPacketMarker{"KajuLocale.kErrorIncorrectPacketMarker", "The update packet signature marker was incorrect."};
inline constexpr Kaju::LocalizedText kErrorIncorrectPacketSignature{"KajuLocale.kErrorIncorrectPacketSignature", "The RSA signature of the update packet cannot be verified."};
inline constexpr Kaju::LocalizedText kErrorNoUpdateData{"KajuLocale.kErrorNoUpdateData", "No update data was available."};
inline constexpr Kaju::LocalizedText kErrorOccurredMessage{"KajuLocale.kErrorOccurredMessage", "An error has occurred. Would you like to try again now or later?"};
inline constexpr Kaju::LocalizedText kExplain64bitMessage{"KajuLocale.kExplain64bitMessage", "Your system may not be able to run the 64-bit version. If you’re not sure, do not select it."};
inline constexpr Kaju::LocalizedText kGenericErrorMessage{"KajuLocale.kGenericErrorMessage", "An error has occurred."};
inline constexpr Kaju::LocalizedText kInstallButton{"KajuLocale.kInstallButton", "Install Update"};
inline constexpr Kaju::LocalizedText kLaterButton{"KajuLocale.kLaterButton", "Later"};
inline constexpr Kaju::LocalizedText kMainNotice{"KajuLocale.kMainNotice", "A new version of <<AppName>> is available!"};
inline constexpr Kaju::LocalizedText kMissingAppNameReason{"KajuLocale.kMissingAppNameReason", "Missing app name"};
inline constexpr Kaju::LocalizedText kMissingReason{"KajuLocale.kMissingReason", "Missing"};
inline constexpr Kaju::LocalizedText kNoUpdateInfoMessage{"KajuLocale.kNoUpdateInfoMessage", "NO UPDATE INFORMATION"};
inline constexpr Kaju::LocalizedText kPaymentRequiredMessage{"KajuLocale.kPaymentRequiredMessage", "This update is not free and will require payment. Proceed anyway?"};
inline constexpr Kaju::LocalizedText kProceedButton{"KajuLocale.kProceedButton", "Proceed"};
inline constexpr Kaju::LocalizedText kProcessingFileMessage{"KajuLocale.kProcessingFileMessage", "Processing file..."};
inline constexpr Kaju::LocalizedText kQuitButton{"KajuLocale.kQuitButton", "Quit && Install"};
inline constexpr Kaju::LocalizedText kReadyMessage{"KajuLocale.kReadyMessage", "Ready to install"};
inline constexpr Kaju::LocalizedText kReleaseNotesLabel{"KajuLocale.kReleaseNotesLabel", "Release Notes:"};
inline constexpr Kaju::LocalizedText kRemindMeLaterButton{"KajuLocale.kRemindMeLaterButton", "Remind Me Later"};
inline constexpr Kaju::LocalizedText kRestNotShownMessage{"KajuLocale.kRestNotShownMessage", "The rest of this page is not shown."};
inline constexpr Kaju::LocalizedText kSecondaryNoticeMultiple{"KajuLocale.kSecondaryNoticeMultiple", "You have version <<ThisVersion>> and there are multiple updates available. Install one?"};
inline constexpr Kaju::LocalizedText kSecondaryNoticeOne{"KajuLocale.kSecondaryNoticeOne", "You have version <<ThisVersion>>. Would you like to install version <<NewVersion>>?"};
inline constexpr Kaju::LocalizedText kSelectAllCommand{"KajuLocale.kSelectAllCommand", "Select All"};
inline constexpr Kaju::LocalizedText kSkipVersionButton{"KajuLocale.kSkipVersionButton", "Skip Version"};
inline constexpr Kaju::LocalizedText kStopButton{"KajuLocale.kStopButton", "Stop"};
inline constexpr Kaju::LocalizedText kThisApplication{"KajuLocale.kThisApplication", "this application"};
inline constexpr Kaju::LocalizedText kTimedOutMessage{"KajuLocale.kTimedOutMessage", "The operation has timed out."};
inline constexpr Kaju::LocalizedText kTryAgainButton{"KajuLocale.kTryAgainButton", "Try Again"};
inline constexpr Kaju::LocalizedText kTryLaterButton{"KajuLocale.kTryLaterButton", "Try Later"};
inline constexpr Kaju::LocalizedText kUse32bitLabel{"KajuLocale.kUse32bitLabel", "Stay With 32-bit"};
inline constexpr Kaju::LocalizedText kUse64bitLabel{"KajuLocale.kUse64bitLabel", "Switch To 64-bit"};
inline constexpr Kaju::LocalizedText kVersionMustBeInFormReason{"KajuLocale.kVersionMustBeInFormReason", "Version must be in one of these forms"};
inline constexpr Kaju::LocalizedText kVersionsLabel{"KajuLocale.kVersionsLabel", "Available Versions:"};
inline constexpr Kaju::LocalizedText kWindowTitle{"KajuLocale.kWindowTitle", "Update Available"};

inline constexpr std::array All{
    kBadDownloadMessage, kBinaryInfoInvalidReason, kCancelButton, kCannotSkipVersionsMessage, kChoose64bitMessage,
    kChooseBetweenBitsMessage, kCurrenlyUsing32bitMessage, kDownloadingMessage, kDryRunMessage, kErrorBadUpdateData,
    kErrorIncorrectPacketMarker, kErrorIncorrectPacketSignature, kErrorNoUpdateData, kErrorOccurredMessage,
    kExplain64bitMessage, kGenericErrorMessage, kInstallButton, kLaterButton, kMainNotice, kMissingAppNameReason,
    kMissingReason, kNoUpdateInfoMessage, kPaymentRequiredMessage, kProceedButton, kProcessingFileMessage,
    kQuitButton, kReadyMessage, kReleaseNotesLabel, kRemindMeLaterButton, kSecondaryNoticeMultiple,
    kSecondaryNoticeOne, kSkipVersionButton, kStopButton, kThisApplication, kTimedOutMessage, kTryAgainButton,
    kTryLaterButton, kUse32bitLabel, kUse64bitLabel, kVersionMustBeInFormReason, kVersionsLabel, kWindowTitle,
    kCopyCommand, kCopyLinkCommand, kRestNotShownMessage, kSelectAllCommand,
};
// clang-format on

}  // namespace KajuLocale
