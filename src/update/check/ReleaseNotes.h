#pragma once

#include <string>

#include "toolkit/StillWanted.h"

namespace Kaju {

/// The release notes to show, as HTML in UTF-8. Notes that begin with the address of a page, bare or in an HTML
/// comment, are replaced by that page or, if it cannot be fetched, by the text after the address. Notes without any
/// text are replaced by a bold sentence that says so. Fetching runs the event loop, up to 5 seconds without progress
/// per request; the result is meaningless once `wanted` returns false.
[[nodiscard]] std::string ProcessReleaseNotes(std::string notes, const toolkit::StillWanted& wanted = {});

}  // namespace Kaju
