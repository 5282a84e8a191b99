#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <sys/types.h>

#include <QImage>
#include <QSocketNotifier>
#include <QTimer>

namespace toolkit::qt {

/// Decodes one picture that may hold anything, while the event loop runs. A process of its own does it (see
/// DecoderProgram.h), under limits of time and memory, so that nothing of the picture reaches this one but pixels.
class PictureDecoder {
 public:
  /// Tells the picture, in premultiplied ARGB; empty if it cannot be had. May destroy the decoder.
  using Decoded = std::function<void(QImage picture)>;

  /// The picture is made smaller until it is at most `mostWidth` pixels wide and has Picture::MostPixels.
  PictureDecoder(std::string_view encoded, int mostWidth, Decoded decoded);
  PictureDecoder(const PictureDecoder&) = delete;
  PictureDecoder& operator=(const PictureDecoder&) = delete;
  /// Ends the process. Nothing is told any more.
  ~PictureDecoder();

 private:
  void Go();
  void End();
  void Finish();

  int mostWidth_;
  Decoded decoded_;
  // Files in memory: the process starts with its input, and what it writes is read when it has ended.
  int input_;
  int output_;
  pid_t process_ = 0;
  std::unique_ptr<QSocketNotifier> ended_;
  // When to start, and then when to wait no longer.
  QTimer deadline_;
};

}  // namespace toolkit::qt
