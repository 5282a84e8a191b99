#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QPixmap>
#include <QTimer>

#include "toolkit/qt/PictureLoader.h"

namespace toolkit::qt {

/// Loads the pictures of a page while the event loop runs: from http, https and data addresses, and from nowhere else.
/// A few load at a time. How large each may be, and all together, is bounded, so that no page takes more memory or time
/// than a reader would grant it. When the object goes, loading ends.
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
  void Step();
  void LoadData(std::size_t number);
  void LoadByHTTP(std::size_t number);
  void Loaded(std::size_t number, const std::string& encoded);
  [[nodiscard]] QPixmap DecodeToFit(const std::string& encoded, QSize size);
  void Fail(std::size_t number, int status, const std::string& why);

  std::vector<std::string> addresses_;
  int mostWidth_;
  double pixelsPerPoint_;
  Events events_;
  QTimer turn_;
  std::size_t next_ = 0;
  std::map<std::size_t, std::unique_ptr<PictureLoader>> loaders_;
  // What all pictures together may still take.
  std::uint64_t bytesLeft_;
  std::int64_t encodedPixelsLeft_;
  std::int64_t shownPixelsLeft_;
};

}  // namespace toolkit::qt
