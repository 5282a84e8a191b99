#include "toolkit/SpecialFolder.h"

#include "toolkit/Platform.h"

namespace toolkit {

FolderItem SpecialFolder::ApplicationData() { return Platform::Current().ApplicationDataFolder(); }

FolderItem SpecialFolder::Desktop() { return Platform::Current().DesktopFolder(); }

}  // namespace toolkit
