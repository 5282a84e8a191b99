#pragma once

#include <string>

namespace toolkit {

/// What the program that uses the toolkit is called.
struct ProgramFacts {
  /// For users, and for servers as the product of "User-Agent" (RFC 9110).
  std::string Name;
  /// For the system: the names of its desktop entry, its icon among the resources, and its temporary files.
  std::string Id;
};

}  // namespace toolkit
