#include "toolkit/FolderItem.h"

#include <system_error>

namespace toolkit {

FolderItem FolderItem::Child(std::string_view name) const { return FolderItem(path_ / name); }

bool FolderItem::Exists() const {
  std::error_code ignored;
  return std::filesystem::exists(path_, ignored);
}

void FolderItem::CreateAsFolder() const {
  std::error_code ignored;
  std::filesystem::create_directories(path_, ignored);
}

}  // namespace toolkit
