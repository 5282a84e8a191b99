#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A picture file that takes far more time or memory to decode than its size suggests.
struct HostilePicture {
  std::string_view Name;
  std::string Encoded;
};

/// One of each kind, none larger than 2 MB. None of them can be shown.
[[nodiscard]] std::vector<HostilePicture> HostilePictures();
