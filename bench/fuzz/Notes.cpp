// Release notes, and the page that they may lead to: the input up to its first NUL, and the rest.

#include "fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/Text.h"
#include "update/check/ReleaseNotes.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  const std::string notes(input.substr(0, input.find('\0')));
  const std::string_view page = input.substr(std::min(notes.size() + 1, input.size()));
  platform.Requests.clear();
  platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, page); };
  const std::string shown = Kaju::ProcessReleaseNotes(notes);
  Require(!shown.empty(), "there is always something to show");
  Require(toolkit::IsUTF8(shown) || !toolkit::IsUTF8(notes), "a page is shown as UTF-8");
  Require(platform.Requests.size() <= 2, "without redirects, a page is asked for twice at most");
}
