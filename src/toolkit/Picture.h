#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace toolkit {

/// A picture in its encoded form (PNG); the desktop decodes it when it paints it.
class Picture {
 public:
  /// `encoded` must outlive the picture.
  explicit Picture(std::span<const std::byte> encoded) : encoded_(encoded) {}

  [[nodiscard]] std::span<const std::byte> Encoded() const { return encoded_; }

 private:
  std::span<const std::byte> encoded_;
};

/// The picture of that name among the program's resources. Throws a RuntimeException if there is none.
[[nodiscard]] std::shared_ptr<const Picture> OpenPictureResource(std::string_view name);

}  // namespace toolkit
