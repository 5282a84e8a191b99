#pragma once

#include <cstddef>
#include <functional>

namespace toolkit {

/// Called between the steps of long work, and while it waits: the work ends early, without a result, once it returns
/// false. An empty function always continues.
using StillWanted = std::function<bool()>;

/// The number of bytes that are processed between two such calls.
inline constexpr std::size_t bytesAtOnce = 1'000'000;

inline bool IsWanted(const StillWanted& wanted) { return !wanted || wanted(); }

}  // namespace toolkit
