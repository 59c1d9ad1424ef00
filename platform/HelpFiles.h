// The manual that is compiled into the program.
#pragma once
#include "base/EmbeddedFiles.h"

namespace clb {

/// The files of the manual: pages (the first is index.html), style and pictures. All go into one
/// folder. Embedded from help/.
[[nodiscard]] EmbeddedFiles HelpFiles();

}  // namespace clb
