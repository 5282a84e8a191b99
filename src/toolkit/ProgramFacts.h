#pragma once

#include <string>

namespace toolkit {

/// The names of the program that uses the toolkit.
struct ProgramFacts {
  /// The name shown to users, and sent to servers as the product of "User-Agent" (RFC 9110).
  std::string Name;
  /// The name for the system: of the desktop entry, the icon resource and temporary files.
  std::string Id;
};

}  // namespace toolkit
