#include "toolkit/Picture.h"

#include <string>

#include "resources/Resource.h"
#include "toolkit/RuntimeException.h"

namespace toolkit {

std::shared_ptr<const Picture> OpenPictureResource(std::string_view name) {
  const auto encoded = resources::Find(name);
  if (encoded.empty()) throw RuntimeException("The program has no picture named " + std::string(name) + ".");
  return std::make_shared<const Picture>(encoded);
}

}  // namespace toolkit
