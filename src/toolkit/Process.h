#pragma once

namespace toolkit {

/// Makes the settings of the whole process. Every program that shows windows calls this in main, before it makes its
/// Platform.
void SetUpProcess();

}  // namespace toolkit
