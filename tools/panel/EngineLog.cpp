#include "panel/EngineLog.h"

#include <map>
#include <string>

#include "toolkit/Text.h"

namespace panel {
namespace {

constexpr std::size_t headerSize = 8;

// Collects the pieces of one output until a line is complete.
class LineBuffer {
 public:
  void Add(std::string_view piece, const LineSink& sink) {
    for (std::size_t end = piece.find('\n'); end != std::string_view::npos; end = piece.find('\n')) {
      line_ += piece.substr(0, end);
      piece.remove_prefix(end + 1);
      Flush(sink);
    }
    line_ += piece;
  }
  void AddRest(const LineSink& sink) {
    if (!line_.empty()) Flush(sink);
  }

 private:
  void Flush(const LineSink& sink) {
    // Terminals end lines with CR LF.
    if (!line_.empty() && line_.back() == '\r') line_.pop_back();
    sink(toolkit::RepairUTF8(line_));
    line_.clear();
  }

  std::string line_;
};

std::size_t FrameLength(std::string_view header) {
  std::size_t length = 0;
  for (const char byte : header.substr(4, 4)) length = length << 8U | static_cast<unsigned char>(byte);
  return length;
}

}  // namespace

void SplitEngineLog(std::string_view log, LogForm form, const LineSink& sink) {
  // A line may be split between several frames, with frames of the other output in between.
  std::map<char, LineBuffer> buffers;
  if (form == LogForm::Raw) {
    buffers[0].Add(log, sink);
    log = {};
  }
  while (!log.empty()) {
    if (log.size() < headerSize || log.size() - headerSize < FrameLength(log)) {
      throw Refusal("The container engine's log is cut off.");
    }
    const std::size_t length = FrameLength(log);
    buffers[log.front()].Add(log.substr(headerSize, length), sink);
    log.remove_prefix(headerSize + length);
  }
  for (auto& [output, buffer] : buffers) buffer.AddRest(sink);
}

}  // namespace panel
