#include "toolkit/Picture.h"

#include <optional>
#include <string>
#include <utility>

#include "resources/Resource.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"

namespace toolkit {

std::shared_ptr<const Picture> Picture::FromData(std::string encoded, const StillWanted& wanted) {
  std::optional<toolkit::Pixels> pixels = Platform::Current().DecodePicture(std::move(encoded), wanted);
  if (!pixels) throw RuntimeException("The picture cannot be read.");
  return std::make_shared<const Picture>(*std::move(pixels));
}

std::shared_ptr<const Picture> Picture::Faded(std::shared_ptr<const Picture> original, double transparency) {
  return std::shared_ptr<const Picture>(new Picture(std::move(original), transparency));
}

std::shared_ptr<const Picture> OpenPictureResource(std::string_view name) {
  const auto encoded = resources::Find(name);
  if (encoded.empty()) throw RuntimeException("The program has no picture named " + std::string(name) + ".");
  return std::make_shared<const Picture>(encoded);
}

}  // namespace toolkit
