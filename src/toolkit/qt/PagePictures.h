#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QElapsedTimer>
#include <QPixmap>
#include <QTimer>

#include "toolkit/qt/PictureDecoder.h"

namespace toolkit::qt {

/// Loads the pictures of a page while the event loop runs: from http, https and data addresses, and from nowhere else.
/// A few load at a time, and one is decoded. What all of them may take together is bounded, so that no page takes more
/// memory or time than a reader would grant it. When the object goes, loading ends.
class PagePictures {
 public:
  /// What happens to the pictures, one at a time and on the event loop. Either call may destroy the object.
  struct Events {
    /// The picture of that number is there.
    std::function<void(std::size_t number, const QPixmap& picture)> Arrived;
    /// A picture is not coming: the HTTP status, or 0 if there is none, and why.
    std::function<void(int status, const std::string& description)> Failed;
  };

  /// Pictures wider than `mostWidth` points are made smaller. There are `pixelsPerPoint`.
  PagePictures(std::vector<std::string> addresses, int mostWidth, double pixelsPerPoint, Events events);
  PagePictures(const PagePictures&) = delete;
  PagePictures& operator=(const PagePictures&) = delete;
  ~PagePictures();

 private:
  class Loader;

  void Step();
  void Load(std::size_t number);
  bool Spend(std::size_t number, std::uint64_t bytes, std::uint64_t received);
  void Loaded(std::size_t number, std::string encoded);
  void Decode();
  void Decoded(std::size_t number, QImage image);
  void Fail(std::size_t number, int status, const std::string& why);

  std::vector<std::string> addresses_;
  int mostWidth_;
  double pixelsPerPoint_;
  Events events_;
  QTimer turn_;
  std::size_t next_ = 0;
  std::map<std::size_t, std::unique_ptr<Loader>> loaders_;
  // Those that wait for the decoder.
  std::map<std::size_t, std::string> encoded_;
  std::unique_ptr<PictureDecoder> decoder_;
  QElapsedTimer decoding_;
  // What all pictures together may still take.
  std::uint64_t bytesLeft_;
  std::int64_t pixelsLeft_;
  std::chrono::milliseconds timeLeft_;
};

}  // namespace toolkit::qt
