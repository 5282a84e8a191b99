#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace resources {

/// The bytes of a file that was built into the program. `name` is the file name without folder and extension, exactly
/// as written; the span is empty if there is none. The bytes live as long as the program.
std::span<const std::byte> Find(std::string_view name);

}  // namespace resources
