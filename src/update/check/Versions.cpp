#include "update/check/Versions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "toolkit/Application.h"
#include "toolkit/RegEx.h"
#include "toolkit/Text.h"
#include "update/check/KajuException.h"

namespace Kaju {
namespace {

constexpr int finalStage = CodeOf(toolkit::Stage::Final);
/// The letters of the stages before it, in their order and in either case.
constexpr std::string_view stageLetters = "dabDAB";

/// The number that the digits represent; 0 if there are none.
double Val(std::string_view digits) {
  double value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return read.ec == std::errc::result_out_of_range ? std::numeric_limits<double>::infinity() : value;
}

/// The first three of the numbers between the points; missing ones are empty.
std::array<std::string_view, 3> SplitNumbers(std::string_view dotted) {
  std::array<std::string_view, 3> numbers;
  for (std::string_view& number : numbers) {
    number = dotted.substr(0, dotted.find('.'));
    dotted.remove_prefix(std::min(number.size() + 1, dotted.size()));
  }
  return numbers;
}

}  // namespace

double VersionToDouble(std::string_view version) {
  if (version.empty()) return 0.0;
  static const toolkit::RegEx form(R"((?mi-Us)^([\d.]+)(?|([dab])(\d+)|( )\((\d+)\))?$)");
  const auto match = form.Search(version);
  if (!match) {
    throw KajuException("Version is not properly formatted: " + std::string(version), "Kaju.VersionToDouble");
  }
  double value = 0.0;
  for (const std::string_view number : SplitNumbers(match->SubExpression(1))) value = 1000.0 * value + Val(number);

  const std::string_view stage = match->SubExpression(2);
  const double fraction = Val(match->SubExpression(3)) / 10000.0;
  // The order of the additions determines the last bits.
  if (toolkit::EqualIgnoringCase(stage, "d")) return fraction + value;
  if (toolkit::EqualIgnoringCase(stage, "a")) return (0.1 + value) + fraction;
  if (toolkit::EqualIgnoringCase(stage, "b")) return (0.2 + value) + fraction;
  return (0.4 + value) + fraction;
}

std::string VersionStringFor(int major, int minor, int bug, int stage, int nonRelease) {
  std::string version = std::to_string(major).append(".").append(std::to_string(minor));
  if (bug > 0) version.append(".").append(std::to_string(bug));
  if (stage == finalStage) {
    return nonRelease > 0 ? version.append(" (").append(std::to_string(nonRelease)).append(")") : version;
  }
  if (stage >= 0 && stage < finalStage) version += stageLetters.at(static_cast<std::size_t>(stage));
  return version.append(std::to_string(nonRelease));
}

int StageCodeOf(std::string_view version) {
  const std::size_t place = version.find_first_of(stageLetters);
  return place == std::string_view::npos ? finalStage
                                         : static_cast<int>(stageLetters.find(version[place]) % finalStage);
}

std::string AppVersionString() {
  const toolkit::Application& app = *toolkit::Application::Current();
  return VersionStringFor(app.MajorVersion(), app.MinorVersion(), app.BugVersion(), app.StageCode(),
                          app.NonReleaseVersion());
}

}  // namespace Kaju
