#pragma once

namespace Kaju {

enum class System { Mac, Windows, Linux };
enum class Width { Bits32, Bits64 };

/// The platform of a build of the program, which decides which file of an update it can use.
struct BuildTarget {
  System Platform = System::Linux;
  Width Bits = Width::Bits64;

  /// The platform of the running program.
  static constexpr BuildTarget Running() {
#if defined(__APPLE__)
    constexpr System system = System::Mac;
#elif defined(_WIN32)
    constexpr System system = System::Windows;
#else
    constexpr System system = System::Linux;
#endif
    return {.Platform = system, .Bits = sizeof(void*) > 4 ? Width::Bits64 : Width::Bits32};
  }
};

}  // namespace Kaju
