#include "tests/support/HostilePictures.h"

#include <initializer_list>

#include <QByteArray>

#include "tests/support/CRC32.h"

using namespace std::string_literals;

namespace {

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

std::string BigEndian(std::size_t value) {
  return Bytes({static_cast<int>(value >> 24U), static_cast<int>(value >> 16U), static_cast<int>(value >> 8U),
                static_cast<int>(value)});
}

std::string Chunk(const std::string& type, const std::string& data) {
  return BigEndian(data.size()) + type + data + BigEndian(CRC32(type + data));
}

std::string Compressed(const std::string& bytes) {
  constexpr qsizetype lengthBefore = 4;
  return qCompress(QByteArray::fromStdString(bytes)).sliced(lengthBefore).toStdString();
}

/// Black, one bit a pixel, with `chunks` before the pixels.
std::string PNG(std::size_t side, const std::string& chunks) {
  return "\x89PNG\r\n\x1a\n" + Chunk("IHDR", BigEndian(side) + BigEndian(side) + Bytes({1, 0, 0, 0, 0})) + chunks +
         Chunk("IDAT", Compressed(std::string(side * (side / 8 + 2), '\0'))) + Chunk("IEND", "");
}

/// The decoder unpacks each text, and each is just below the library's own limit.
std::string TextsInPNG() {
  const std::string text = Chunk("zTXt", "a\0\0"s + Compressed(std::string(7'900'000, 'a')));
  std::string texts;
  for (int count = 0; count < 100; ++count) texts += text;
  return PNG(8, texts);
}

/// The directory declares another size than the picture in the file has.
std::string LargeICO() {
  const std::string picture = PNG(5'700, "");
  std::string size = BigEndian(picture.size());
  return Bytes({0, 0, 1, 0, 1, 0, 16, 16, 0, 0, 1, 0, 32, 0}) + std::string(size.rbegin(), size.rend()) +
         Bytes({22, 0, 0, 0}) + picture;
}

std::string Segment(int marker, const std::string& content) {
  return Bytes({0xFF, marker}) + BigEndian(content.size() + 2).substr(2) + content;
}

/// One component, progressive. Each scan says in a few bits that all its blocks stay unchanged, and the decoder visits
/// each block.
std::string ScansInJPEG() {
  constexpr std::size_t side = 4'800;
  constexpr std::size_t blocks = side / 8 * side / 8;
  constexpr std::size_t blocksOfRun = 1U << 14U;  // encoded in 15 bits, all of them zero
  constexpr std::size_t bytesOfScan = (blocks / blocksOfRun + 1) * 15 / 8 + 1;
  const auto codes = [](int table, int symbol) {  // one code, of one bit
    return Segment(0xC4, Bytes({table, 1}) + std::string(15, '\0') + Bytes({symbol}));
  };
  const auto scan = [](int first, int last, std::size_t length) {
    return Segment(0xDA, Bytes({1, 1, 0, first, last, 0})) + std::string(length, '\0');
  };
  std::string file = Bytes({0xFF, 0xD8}) + Segment(0xDB, '\0' + std::string(64, '\1')) +
                     Segment(0xC2, Bytes({8, side >> 8U, side & 0xFFU, side >> 8U, side & 0xFFU, 1, 1, 0x11, 0})) +
                     codes(0x00, 0) + codes(0x10, 0xE0) + scan(0, 0, blocks / 8);
  const std::string empty = scan(1, 63, bytesOfScan);
  for (int count = 0; count < 20'000; ++count) file += empty;
  return file + Bytes({0xFF, 0xD9});
}

/// One pixel on a screen of 16,000 by 2,000.
std::string ScreenOfGIF() {
  return "GIF89a" + Bytes({0x80, 0x3E, 0xD0, 0x07, 0x80, 0, 0, 0, 0, 0, 255, 255, 255}) +
         Bytes({0x2C, 0, 0, 0, 0, 1, 0, 1, 0, 0, 2, 2, 0x44, 1, 0, 0x3B});
}

/// Lossless, of the largest possible size and a single color: its pixels take no bits at all.
std::string LargestWebP() {
  const std::string picture = Bytes({0x2F, 0xFE, 0xBF, 0xFF, 0x0F, 0x88, 0x88, 0x08, 0});
  return "RIFF" + Bytes({22, 0, 0, 0}) + "WEBPVP8L" + Bytes({9, 0, 0, 0}) + picture + '\0';
}

}  // namespace

std::vector<HostilePicture> HostilePictures() {
  return {{"empty scans in a JPEG", ScansInJPEG()},
          {"texts in a PNG", TextsInPNG()},
          {"a large ICO", LargeICO()},
          {"the screen of a GIF", ScreenOfGIF()},
          {"the largest WebP", LargestWebP()}};
}
