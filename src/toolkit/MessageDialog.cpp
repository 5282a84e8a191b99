#include "toolkit/MessageDialog.h"

#include <utility>

#include "toolkit/Platform.h"

namespace toolkit {

DialogButton MessageDialog::ShowModal() const { return Platform::Current().ShowDialog(*this); }

void MsgBox(std::string text, std::string about) {
  MessageDialog box;
  box.About = std::move(about);
  box.Message = std::move(text);
  Platform::Current().ShowDialog(box);
}

}  // namespace toolkit
