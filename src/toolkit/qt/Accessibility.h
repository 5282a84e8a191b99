#pragma once

namespace toolkit::qt {

/// Describes to assistive technologies what Qt does not: windows, pictures, the progress of a wheel or a bar, and the
/// actions of a list. Call it once per application object.
void DescribeViews();

}  // namespace toolkit::qt
