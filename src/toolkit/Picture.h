#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "toolkit/Pixels.h"
#include "toolkit/StillWanted.h"

namespace toolkit {

/// A picture: one of the program's resources in encoded form, which the desktop decodes when it paints it, or the
/// decoded pixels of one from elsewhere. Immutable, so any number of owners may share it.
class Picture {
 public:
  /// One of the program's resources. `encoded`, in PNG, must outlive the picture.
  explicit Picture(std::span<const std::byte> encoded) : encoded_(encoded) {}
  explicit Picture(toolkit::Pixels pixels) : pixels_(std::move(pixels)) {}
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  ~Picture() = default;

  /// The most bytes of a picture from elsewhere, encoded; a longer one is not loaded.
  static constexpr std::uint64_t mostBytes = 16'000'000;
  /// The most pixels of a picture from elsewhere; a larger one is scaled down.
  static constexpr std::int64_t mostPixels = 2'500'000;

  /// Decodes a picture of untrusted origin. Runs the event loop meanwhile, and gives up once `wanted` returns false.
  /// Throws a RuntimeException if it cannot be decoded.
  [[nodiscard]] static std::shared_ptr<const Picture> FromData(std::string encoded, const StillWanted& wanted = {});

  /// Empty if the picture has pixels instead.
  [[nodiscard]] std::span<const std::byte> Encoded() const { return Original().encoded_; }
  [[nodiscard]] const toolkit::Pixels& Pixels() const { return Original().pixels_; }
  /// The transparency in per cent, in addition to the picture's own mask.
  [[nodiscard]] double Transparency() const { return transparency_; }

  /// `original` with that transparency, 0 to 100. Shares the bytes and keeps the mask.
  [[nodiscard]] static std::shared_ptr<const Picture> Faded(std::shared_ptr<const Picture> original,
                                                            double transparency);

 private:
  Picture(std::shared_ptr<const Picture> original, double transparency)
      : original_(std::move(original)), transparency_(transparency) {}

  [[nodiscard]] const Picture& Original() const { return original_ ? original_->Original() : *this; }

  std::span<const std::byte> encoded_;
  toolkit::Pixels pixels_;
  // Keeps alive what a faded picture shows.
  std::shared_ptr<const Picture> original_;
  double transparency_ = 0;
};

/// The picture with that name among the program's resources. Throws a RuntimeException if there is none.
[[nodiscard]] std::shared_ptr<const Picture> OpenPictureResource(std::string_view name);

}  // namespace toolkit
