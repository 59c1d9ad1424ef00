// Runs the program with its window.
#pragma once
#include "desktop/start/StartOptions.h"

namespace clb {

/// Runs the program with its window until it is closed. Returns the exit code: 0, or 1 if loading
/// failed. A message box reports the failure, or standard error if there is no window.
int RunDesktop(int argc, char** argv, const StartOptions& options);

}  // namespace clb
