#pragma once

namespace toolkit::qt {

/// Lets assistive programs see what Qt does not tell of the views: windows, pictures, what goes on in a wheel or a bar,
/// and what can be done to a list. To be called once, when there is an application object.
void DescribeViews();

}  // namespace toolkit::qt
