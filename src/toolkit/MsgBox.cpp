#include "toolkit/MsgBox.h"

#include "toolkit/Platform.h"

namespace toolkit {

void MsgBox(const std::string& text) { Platform::Current().ShowMessage(text); }

}  // namespace toolkit
