#pragma once

#include <string>
#include <string_view>

namespace Kaju {

/// A version string, such as "1.2.3", "1.2.4b4" or "1.3.4 (232)", as a number that orders versions: major × 1,000,000 +
/// minor × 1,000 + bug, plus .0 for development, .1 for alpha, .2 for beta, .4 for final, plus the non-release number ÷
/// 10,000. 0 for the empty string. Throws a KajuException if the string is malformed.
[[nodiscard]] double VersionToDouble(std::string_view version);

/// The version string for these numbers; `stage` is 0 to 3 for development, alpha, beta and final.
[[nodiscard]] std::string VersionStringFor(int major, int minor, int bug, int stage, int nonRelease);

/// The stage, as the same number, by the first stage letter of a version string.
[[nodiscard]] int StageCodeOf(std::string_view version);

/// The version string of the running program.
[[nodiscard]] std::string AppVersionString();

}  // namespace Kaju
