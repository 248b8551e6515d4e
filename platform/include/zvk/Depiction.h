// What kind of program the process is.
#pragma once

namespace zvk::depiction {

/// Whether the process is the authoring application. False until set.
bool IsRunningDepict();
void SetRunningDepict(bool running);

}  // namespace zvk::depiction
