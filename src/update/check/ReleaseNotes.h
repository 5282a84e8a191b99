#pragma once

#include <string>

#include "toolkit/StillWanted.h"

namespace Kaju {

/// The release notes to show, as HTML in UTF-8. Notes that begin with the address of a page, bare or in an HTML
/// comment, are replaced by that page or, where it cannot be had, by the text behind the address. Notes without any
/// text give a bold sentence that says so. Fetching runs the event loop for up to 5 seconds without progress a request;
/// once it is no longer wanted, the result is of no use.
[[nodiscard]] std::string ProcessReleaseNotes(std::string notes, const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
