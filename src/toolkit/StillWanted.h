#pragma once

#include <functional>

namespace toolkit {

/// Asked between the steps of long work, and while it waits: the work ends early, without a result, once the answer is
/// no. The empty function wants everything.
using StillWanted = std::function<bool()>;

/// Whether to go on.
inline bool IsWanted(const StillWanted& wanted) { return !wanted || wanted(); }

}  // namespace toolkit
