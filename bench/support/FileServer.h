#pragma once

#include <filesystem>

namespace bench {

/// Prints its URL on a line, then serves the files of a folder over HTTP from memory, on a free port of this machine.
/// Returns only if listening fails.
void ServeFiles(const std::filesystem::path& folder);

}  // namespace bench
