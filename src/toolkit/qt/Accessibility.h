#pragma once

namespace toolkit::qt {

/// Lets assistive programs see the views that Qt has no description of its own for: what goes on in a wheel or a bar.
/// To be called once, when there is an application object.
void DescribeViews();

}  // namespace toolkit::qt
