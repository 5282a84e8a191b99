#pragma once

#include <string>

#include "toolkit/HTTPTransfer.h"

namespace toolkit {

/// A failure in plain words for the user: which host, and what went wrong.
[[nodiscard]] std::string DescribeFailure(const TransferFailure& failure);

}  // namespace toolkit
