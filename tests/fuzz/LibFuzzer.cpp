// The entry point for libFuzzer, which has its own main.

#include "tests/fuzz/Target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzOne({reinterpret_cast<const char*>(data), size});
  return 0;
}
