#pragma once

#include <string>

namespace toolkit {

/// Shows `text`, as plain text and without a title, and waits for the user. Other events run meanwhile, so afterwards
/// a window may be closed and a selection gone. Where a box stands already, this one comes after it.
void MsgBox(const std::string& text);

}  // namespace toolkit
