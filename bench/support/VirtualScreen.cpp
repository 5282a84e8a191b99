#include "support/VirtualScreen.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace bench {
namespace {

// A file in the X Window Dump format begins with big-endian 32-bit numbers. The first is the size of the header, which
// is followed by the colours, 12 bytes each; the 20th is their number.
constexpr std::size_t placeOfHeaderSize = 0;
constexpr std::size_t placeOfColourCount = 76;
constexpr std::size_t bytesOfColour = 12;

std::size_t ReadNumber(const unsigned char* bytes, std::size_t place) {
  std::size_t number = 0;
  for (std::size_t index = 0; index < 4; ++index) number = number << 8U | bytes[place + index];
  return number;
}

}  // namespace

VirtualScreen::VirtualScreen() {
  const std::vector<std::string> command{"Xvfb",         "-displayfd", "1",   "-screen", "0",
                                         "1280x1024x24", "-nolisten",  "tcp", "-fbdir",  folder_.Path()};
  // It writes an error for each display number in use before it finds a free one.
  server_ = std::make_unique<ChildProcess>(command, ErrorOutput::Dropped);
  const std::string display = std::string(":").append(server_->ReadLine());
  setenv("DISPLAY", display.c_str(), 1);
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  // Without it, Qt writes a warning at each start.
  setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 0);
  MapPixels();
}

VirtualScreen::~VirtualScreen() {
  if (memory_ != nullptr) munmap(memory_, memorySize_);
}

void VirtualScreen::MapPixels() {
  const std::filesystem::path file = folder_.Path() / "Xvfb_screen0";
  memorySize_ = std::filesystem::file_size(file);
  const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  void* memory = mmap(nullptr, memorySize_, PROT_READ, MAP_SHARED, opened, 0);
  close(opened);
  if (memory == MAP_FAILED) throw std::runtime_error("the pixels of the screen cannot be read");
  memory_ = memory;
  const auto* bytes = static_cast<const unsigned char*>(memory);
  const std::size_t start =
      ReadNumber(bytes, placeOfHeaderSize) + ReadNumber(bytes, placeOfColourCount) * bytesOfColour;
  pixels_ = {reinterpret_cast<const volatile std::uint32_t*>(bytes + start),
             (memorySize_ - start) / sizeof(std::uint32_t)};
}

}  // namespace bench
