#pragma once

#include <string_view>

#include "panel/Fleet.h"

namespace panel {

/// Multiplexed: frames with a header of 8 bytes, the first of which identifies the output, and the last four are the
/// length, big-endian. Raw: the text itself, as containers with a terminal write it.
enum class LogForm { Multiplexed, Raw };

/// Splits an engine's log into lines, in the order in which they end. Bytes that are not UTF-8 become U+FFFD. Throws
/// Refusal, after the complete lines, if a frame is truncated.
void SplitEngineLog(std::string_view log, LogForm form, const LineSink& sink);

}  // namespace panel
