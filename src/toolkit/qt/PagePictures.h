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

/// Loads the pictures of a page while the event loop runs, from http, https and data addresses only. A few are loaded
/// at the same time, and one is decoded. Their bytes, pixels and decoding time are limited in total. The destructor
/// aborts all of it.
class PagePictures {
 public:
  /// Called by the event loop. Each may destroy the object.
  struct Events {
    /// The picture of that number has been decoded.
    std::function<void(std::size_t number, const QPixmap& picture)> Arrived;
    /// A picture could not be loaded or decoded: the HTTP status, or 0 if there is none, and the reason.
    std::function<void(int status, const std::string& description)> Failed;
  };

  /// Pictures are scaled down to `mostWidth` points, of `pixelsPerPoint` each.
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
  // Loaded, but not decoded yet.
  std::map<std::size_t, std::string> encoded_;
  std::unique_ptr<PictureDecoder> decoder_;
  QElapsedTimer decoding_;
  // What is left of the total limits.
  std::uint64_t bytesLeft_;
  std::int64_t pixelsLeft_;
  std::chrono::milliseconds timeLeft_;
};

}  // namespace toolkit::qt
