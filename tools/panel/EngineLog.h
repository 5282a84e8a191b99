#pragma once

#include <string_view>

#include "panel/Fleet.h"

namespace panel {

/// Multiplexed: frames with a header of 8 bytes, whose first byte tells the output they come from and whose last four
/// their length, highest byte first. Raw: the text itself, as terminals give it.
enum class LogForm { Multiplexed, Raw };

/// Splits a log as an engine sends it into lines, in the order of their ends. Bytes that are not UTF-8 become U+FFFD.
/// Throws Refusal, after the lines before it, if a frame is cut off.
void SplitEngineLog(std::string_view log, LogForm form, const LineSink& sink);

}  // namespace panel
