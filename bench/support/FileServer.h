#pragma once

#include <filesystem>

namespace bench {

/// Serves the files of a folder over HTTP from memory, on a free port of this machine, and prints its URL on a line
/// first. Returns only if listening breaks down.
void ServeFiles(const std::filesystem::path& folder);

}  // namespace bench
