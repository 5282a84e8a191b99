#include "toolkit/Picture.h"

#include <optional>
#include <string>

#include "resources/Resource.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"

namespace toolkit {

std::shared_ptr<const Picture> Picture::FromData(std::string encoded) {
  std::shared_ptr<const Picture> picture(new Picture(std::move(encoded)));
  const std::optional<Size> size = Platform::Current().SizeOfPicture(picture->Encoded());
  if (!size) throw RuntimeException("The picture cannot be read.");
  if (std::int64_t{size->Width} * size->Height > MostPixels) throw RuntimeException("The picture is too large.");
  return picture;
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
