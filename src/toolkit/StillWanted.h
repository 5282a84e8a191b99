#pragma once

#include <cstddef>
#include <functional>

namespace toolkit {

/// Asked between the steps of long work, and while it waits: the work ends early, without a result, once the answer is
/// no. The empty function wants everything.
using StillWanted = std::function<bool()>;

/// How much is worked on between two questions, where the work is on bytes.
inline constexpr std::size_t bytesAtOnce = 1'000'000;

/// Whether to go on.
inline bool IsWanted(const StillWanted& wanted) { return !wanted || wanted(); }

}  // namespace toolkit
