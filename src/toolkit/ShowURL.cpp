#include "toolkit/ShowURL.h"

#include <algorithm>
#include <array>

#include "toolkit/DesktopTexts.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace toolkit {

void ShowURL(const std::string& url) {
  if (!Platform::Current().OpenURL(url)) MsgBox(DesktopTexts::kNoBrowserMessage() + "\n\n" + url);
}

bool IsForBrowser(std::string_view url) {
  return std::ranges::any_of(std::array{"http://", "https://", "mailto:"},
                             [&](const char* scheme) { return StartsWithIgnoringCase(url, scheme); });
}

}  // namespace toolkit
