#include "toolkit/qt/DecoderProgram.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QThreadPool>

#include "toolkit/Picture.h"
#include "toolkit/Text.h"

namespace toolkit::qt {
namespace {

constexpr rlim_t mostSeconds = 2;
// Enough for 3840 by 2160 pixels in the usual formats.
constexpr rlim_t mostMemory = 72'000'000;
constexpr rlim_t mostOutput = sizeof(DecodedSize) + Picture::mostPixels * sizeof(QRgb);
// Where core files are piped to a program, the kernel ignores a limit of 0 but obeys 1 (see core(5)).
constexpr rlim_t noCoreFile = 1;
constexpr int howNice = 10;

struct Format {
  const char* Name;
  std::string_view Start;
  std::string_view AtEight;
};
constexpr std::array formats{
    Format{"png", "\x89PNG\r\n\x1a\n", ""},
    Format{"jpeg", "\xff\xd8\xff", ""},
    Format{"gif", "GIF8", ""},
    Format{"webp", "RIFF", "WEBP"},
};

/// The private memory of this process in bytes (see proc(5), "statm").
rlim_t MemoryInUse() {
  constexpr int dataColumn = 5;
  std::ifstream columns("/proc/self/statm");
  rlim_t pages = 0;
  for (int column = 0; column <= dataColumn; ++column) columns >> pages;
  return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// Qt scales and converts pictures in threads, and waits for ever if one cannot start because memory is exhausted.
void StartTheThread() {
  QThreadPool& threads = *QThreadPool::globalInstance();
  threads.setMaxThreadCount(1);
  threads.setExpiryTimeout(-1);
  threads.start([] {});
}

bool Limit(__rlimit_resource resource, rlim_t most) {
  const rlimit limit{most, most};
  return setrlimit(resource, &limit) == 0;
}

bool LimitAll() {
  setpriority(PRIO_PROCESS, 0, howNice);
  return Limit(RLIMIT_CORE, noCoreFile) && Limit(RLIMIT_CPU, mostSeconds) && Limit(RLIMIT_FSIZE, mostOutput) &&
         Limit(RLIMIT_DATA, MemoryInUse() + mostMemory);
}

/// The picture in a data address; `input` itself if it is none.
QByteArray PictureIn(std::string_view input) {
  QByteArray all = QByteArray::fromRawData(input.data(), static_cast<qsizetype>(input.size()));
  if (!StartsWithIgnoringCase(input, "data:")) return all;
  const std::size_t comma = input.find(',');
  if (comma == std::string_view::npos) return {};
  const QByteArray bytes = QByteArray::fromPercentEncoding(all.sliced(static_cast<qsizetype>(comma) + 1));
  return LowerCase(input.substr(0, comma)).ends_with(";base64") ? QByteArray::fromBase64(bytes) : bytes;
}

const char* FormatOf(std::string_view encoded) {
  constexpr std::size_t eight = 8;
  const auto* const format = std::ranges::find_if(formats, [&](const Format& known) {
    return encoded.starts_with(known.Start) &&
           encoded.substr(std::min(eight, encoded.size())).starts_with(known.AtEight);
  });
  return format == formats.end() ? nullptr : format->Name;
}

QSize Fitting(QSize size, int mostWidth) {
  const double area = static_cast<double>(size.width()) * size.height();
  const double scale = std::min(
      {1.0, static_cast<double>(mostWidth) / size.width(), std::sqrt(static_cast<double>(Picture::mostPixels) / area)});
  return {std::max(static_cast<int>(size.width() * scale), 1), std::max(static_cast<int>(size.height() * scale), 1)};
}

QImage Decode(QByteArray encoded, int mostWidth) {
  const char* const format = FormatOf({encoded.constData(), static_cast<std::size_t>(encoded.size())});
  if (format == nullptr) return {};
  QBuffer buffer(&encoded);
  QImageReader reader(&buffer, format);
  reader.setAutoDetectImageFormat(false);
  QImageReader::setAllocationLimit(0);  // the limit of the process covers more
  // The size in the file's header is only used to decode at a smaller scale.
  if (const QSize told = reader.size(); !told.isEmpty() && Fitting(told, mostWidth) != told) {
    reader.setScaledSize(Fitting(told, mostWidth));
  }
  const QImage picture = reader.read();
  if (picture.isNull()) return {};
  return picture.scaled(Fitting(picture.size(), mostWidth), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

bool Write(const void* bytes, std::size_t length) {
  return write(STDOUT_FILENO, bytes, length) == static_cast<ssize_t>(length);
}

bool DecodeInput(int mostWidth) {
  QFile input;
  if (!input.open(STDIN_FILENO, QIODevice::ReadOnly)) return false;
  const auto* bytes = reinterpret_cast<const char*>(input.map(0, input.size()));
  if (bytes == nullptr) return false;
  const QImage picture = Decode(PictureIn({bytes, static_cast<std::size_t>(input.size())}), mostWidth);
  const DecodedSize size{picture.width(), picture.height()};
  return size.IsWithin(mostWidth) && Write(&size, sizeof size) &&
         Write(picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes()));
}

}  // namespace

bool DecodedSize::IsWithin(int mostWidth) const {
  return Width > 0 && Height > 0 && Width <= mostWidth && std::int64_t{Width} * Height <= Picture::mostPixels;
}

std::optional<int> DecodeIfAsked(int argumentCount, char** arguments) {
  if (argumentCount != 3 || arguments[1] != decoderOption) return std::nullopt;
  const QCoreApplication application(argumentCount, arguments);  // knows where the plugins are
  StartTheThread();
  return LimitAll() && DecodeInput(ParseNumber<int>(arguments[2]).value_or(0)) ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace toolkit::qt
