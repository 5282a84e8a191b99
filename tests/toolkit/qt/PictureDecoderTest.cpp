#include <filesystem>
#include <fstream>

#include "tests/desktop/Desktop.h"
#include "tests/support/HostilePictures.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"
#include "toolkit/qt/PictureDecoder.h"

using namespace std::string_literals;
using namespace testing;
using toolkit::Picture;
using toolkit::qt::PictureDecoder;

namespace {

std::string Read(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Encoded(const QImage& image, const char* format) {
  QBuffer buffer;
  EXPECT_TRUE(image.save(&buffer, format)) << format;
  return buffer.data().toStdString();
}

struct Decoding : Desktop {
  static QImage Decode(std::string_view encoded, int mostWidth = 10'000) {
    std::optional<QImage> result;
    const PictureDecoder decoder(encoded, mostWidth, [&](QImage picture) { result = std::move(picture); });
    EXPECT_FALSE(result) << "it was told from within";
    EXPECT_TRUE(Until([&] { return result.has_value(); }));
    return result.value_or(QImage());
  }
  /// The process ids of this program's children.
  static std::string Children() {
    const std::string self = std::to_string(getpid());
    return Read("/proc/" + self + "/task/" + self + "/children");
  }
};

const std::string smallGIF = "GIF89a\4\0\2\0\x80\0\0\xFF\0\0\xFF\0\0,\0\0\0\0\4\0\2\0\0\2\3\x84\x8F\5\0;"s;

TEST_F(Decoding, TakesFourFormatsAndShrinksLargeOnes) {
  QImage red(60, 20, QImage::Format_RGB32);
  red.fill(Qt::red);
  const std::string png = Encoded(red, "png");
  const std::string address = "Data:," + QByteArray::fromStdString(png).toPercentEncoding().toStdString();
  const std::tuple<const char*, std::string, int, QSize> rows[] = {
      {"PNG", png, 100, {60, 20}},
      {"JPEG", Encoded(red, "jpeg"), 100, {60, 20}},
      {"GIF", smallGIF, 100, {4, 2}},
      {"WebP", Encoded(red, "webp"), 100, {60, 20}},
      {"a quoted address", address, 100, {60, 20}},
      {"too wide and flat", Encoded(red.scaled(9'000, 10), "png"), 100, {100, 1}},
      {"too many pixels", Encoded(red.scaled(3'000, 2'000), "png"), 10'000, {1936, 1290}},
      {"ICO", Encoded(red, "ico"), 100, {0, 0}},
      {"SVG", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", 100, {0, 0}},
      {"nothing", "", 100, {0, 0}}};
  for (const auto& [what, encoded, mostWidth, size] : rows) {
    const QImage picture = Decode(encoded, mostWidth);
    EXPECT_EQ(picture.size(), size) << what;
    EXPECT_TRUE(picture.isNull() || picture.pixelColor(1, 0).red() > 252) << what;
  }
}

TEST_F(Decoding, WhatTakesLongEndsWithItsDecoder) {
  for (const auto& [what, encoded] : HostilePictures()) {
    EXPECT_THROW((void)Picture::FromData(encoded), toolkit::RuntimeException) << what;
    EXPECT_EQ(Children(), "") << what;
  }
  const auto untilItRuns = [] { return Children().empty(); };
  EXPECT_THROW((void)Picture::FromData(HostilePictures().front().Encoded, untilItRuns), toolkit::RuntimeException);
  EXPECT_EQ(Children(), "") << "one goes on that nobody waits for";
  const auto picture = Picture::FromData(smallGIF);
  EXPECT_EQ(picture->Pixels().Size, (toolkit::Size{4, 2}));
  EXPECT_THAT(picture->Pixels().Colors, AllOf(SizeIs(8), Each(0xFFFF0000)));
}

TEST_F(Decoding, OneProcessAtATimeMayDoLittle) {
  const PictureDecoder decoder(HostilePictures().front().Encoded, 100, [](const QImage& /*picture*/) {});
  const PictureDecoder next(smallGIF, 100, [](const QImage& /*picture*/) { ADD_FAILURE() << "two at a time"; });
  ASSERT_TRUE(Until([] { return !Children().empty(); }));
  const std::filesystem::path process = "/proc/" + std::string(toolkit::Trim(Children()));
  const auto limits = [&] { return Read(process / "limits"); };
  EXPECT_TRUE(Until([&] { return limits().find("Max cpu time              2 ") != std::string::npos; }));
  EXPECT_TRUE(Until([&] { return limits().find("Max data size             unlimited") == std::string::npos; }));
  EXPECT_THAT(limits(), HasSubstr("Max core file size        1 "));
  EXPECT_THAT(limits(), HasSubstr("Max file size             10000008 "));
  const Matcher<std::vector<std::string>> itsOwn =
      AllOf(IsSupersetOf({"/memfd:encoded (deleted)", "/memfd:decoded (deleted)"}),
            Each(AnyOf(StartsWith("/memfd:"), "/dev/null", "anon_inode:[eventfd]")));
  std::vector<std::string> files;
  const auto hasItsOwn = [&] {  // once its libraries are loaded
    files.clear();
    std::error_code closedMeanwhile;
    for (const auto& file : std::filesystem::directory_iterator(process / "fd"))
      files.push_back(std::filesystem::read_symlink(file, closedMeanwhile));
    return itsOwn.Matches(files);
  };
  Until(hasItsOwn);
  EXPECT_THAT(files, itsOwn);
}

}  // namespace
