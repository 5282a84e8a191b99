#include "toolkit/ShowURL.h"

#include "toolkit/MessageDialog.h"
#include "toolkit/Platform.h"

namespace toolkit {

void ShowURL(const std::string& url) {
  if (!Platform::Current().OpenURL(url)) MsgBox("This desktop has no browser to open the address with:\n\n" + url);
}

}  // namespace toolkit
