#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace toolkit {

/// A picture in its encoded form, such as PNG; the desktop decodes it when it paints it. It never changes, so any
/// number of owners may share it.
class Picture {
 public:
  /// `encoded` must outlive the picture.
  explicit Picture(std::span<const std::byte> encoded) : encoded_(encoded) {}
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  ~Picture() = default;

  /// More are never decoded.
  static constexpr std::int64_t MostPixels = 50'000'000;

  /// The picture in `encoded`. Throws a RuntimeException if that is none that the desktop can show, or one of more than
  /// MostPixels.
  [[nodiscard]] static std::shared_ptr<const Picture> FromData(std::string encoded);

  [[nodiscard]] std::span<const std::byte> Encoded() const { return encoded_; }
  /// How much of what lies beneath shows through, in per cent, where the picture's own mask lets anything be drawn.
  [[nodiscard]] double Transparency() const { return transparency_; }

  /// `original` with that transparency, 0 to 100. Shares the bytes, and keeps the mask.
  [[nodiscard]] static std::shared_ptr<const Picture> Faded(std::shared_ptr<const Picture> original,
                                                            double transparency);

 private:
  explicit Picture(std::string encoded) : owned_(std::move(encoded)), encoded_(std::as_bytes(std::span(owned_))) {}

  Picture(std::shared_ptr<const Picture> original, double transparency)
      : encoded_(original->encoded_), original_(std::move(original)), transparency_(transparency) {}

  std::string owned_;
  std::span<const std::byte> encoded_;
  // Owns the bytes of a faded picture.
  std::shared_ptr<const Picture> original_;
  double transparency_ = 0;
};

/// The picture of that name among the program's resources. Throws a RuntimeException if there is none.
[[nodiscard]] std::shared_ptr<const Picture> OpenPictureResource(std::string_view name);

}  // namespace toolkit
