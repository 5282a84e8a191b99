#pragma once

#include <string>

#include "toolkit/HTTPTransfer.h"

namespace toolkit {

/// Describes a failure for the user: the host, and what went wrong.
[[nodiscard]] std::string DescribeFailure(const TransferFailure& failure);

}  // namespace toolkit
