#pragma once

#include <cstdint>
#include <string_view>

/// The checksum of ISO 3309, which PNG and zip files hold.
[[nodiscard]] inline std::uint32_t CRC32(std::string_view bytes) {
  std::uint32_t sum = ~0U;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ (sum % 2 == 0 ? 0 : 0xEDB88320U);
  }
  return ~sum;
}
