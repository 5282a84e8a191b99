#pragma once

namespace Kaju {

enum class System { Mac, Windows, Linux };
enum class Width { Bits32, Bits64 };

/// What a build of the program runs on; decides which file of an update it can take.
struct BuildTarget {
  System Platform = System::Linux;
  Width Bits = Width::Bits64;

  /// That of the running program.
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
