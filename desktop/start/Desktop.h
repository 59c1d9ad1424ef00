#pragma once
#include "desktop/start/StartOptions.h"

namespace clb {

/// Runs the program with its window until it is closed; returns the process's exit code: 0, or 1
/// when loading failed (told in a message box; on standard error where there is no window to show
/// it in).
int RunDesktop(int argc, char** argv, const StartOptions& options);

}  // namespace clb
