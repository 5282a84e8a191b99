#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <sys/types.h>

#include <QImage>
#include <QSocketNotifier>
#include <QTimer>

namespace toolkit::qt {

/// Decodes one untrusted picture while the event loop runs, in a process of its own (see DecoderProgram.h) whose time
/// and memory are limited. This process only receives pixels.
class PictureDecoder {
 public:
  /// Receives the picture in premultiplied ARGB; an empty one if it could not be decoded. May destroy the decoder.
  using Decoded = std::function<void(QImage picture)>;

  /// The picture is scaled down to at most `mostWidth` pixels of width and Picture::mostPixels in all.
  PictureDecoder(std::string_view encoded, int mostWidth, Decoded decoded);
  PictureDecoder(const PictureDecoder&) = delete;
  PictureDecoder& operator=(const PictureDecoder&) = delete;
  /// Kills the process. Nothing is reported any more.
  ~PictureDecoder();

 private:
  void Go();
  void End();
  void Finish();

  int mostWidth_;
  Decoded decoded_;
  // Files in memory (memfd_create): the input is complete before the start, the output is read after the end.
  int input_;
  int output_;
  pid_t process_ = 0;
  std::unique_ptr<QSocketNotifier> ended_;
  // Starts the process, and later ends the wait for it.
  QTimer deadline_;
};

}  // namespace toolkit::qt
