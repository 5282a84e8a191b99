#include "update/check/ReleaseNotes.h"

#include "toolkit/Encoding.h"
#include "toolkit/RegEx.h"
#include "toolkit/Text.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/KajuLocale.h"

namespace Kaju {
namespace {

constexpr std::uint64_t largestPage = std::uint64_t{4} << 20U;

/// Converts a page from the encoding that it declares.
std::string ToUTF8(const std::string& page) {
  static const toolkit::RegEx declaration(R"(<meta charset *= *["']([^"']+))");
  std::optional<std::string> converted;
  if (const auto match = declaration.Search(page)) {
    converted = toolkit::ConvertToUTF8(page, toolkit::Trim(match->SubExpression(1)));
  }
  return converted ? *std::move(converted) : toolkit::RepairUTF8(page);
}

std::string FetchNotes(const std::string& address, std::string_view fallback, const toolkit::StillWanted& wanted) {
  HTTPSSocket redirects;
  redirects.Wanted = wanted;
  const std::string resolved = redirects.GetRedirectAddress(address);
  if (!toolkit::IsWanted(wanted)) return "";
  HTTPSSocket socket;
  socket.Wanted = wanted;
  socket.LargestBody = largestPage;
  const std::string page = socket.Get(resolved, HTTPSSocket::kTimeoutSeconds);
  const bool isMissing = socket.IsMissing() || toolkit::Trim(page).empty();
  return isMissing ? std::string(fallback) : ToUTF8(page);
}

}  // namespace

std::string ProcessReleaseNotes(std::string notes, const toolkit::StillWanted& wanted) {
  static const std::string noNotes = "<b>" + KajuLocale::kNoUpdateInfoMessage() + "</b>";
  static const toolkit::RegEx linkForm(
      R"((?mi-Us)\A\x20*(?|(?:(http[^\s]+)\x20*\R)|(?:<!--\s*(http[^\s]*)\s*-->))([\s\S]*))");
  if (const auto link = linkForm.Search(notes)) {
    const std::string address(toolkit::Trim(link->SubExpression(1)));
    notes = FetchNotes(address, toolkit::Trim(link->SubExpression(2)), wanted);
  }
  return toolkit::Trim(notes).empty() ? noNotes : notes;
}

}  // namespace Kaju
