#pragma once
#include "base/EmbeddedFiles.h"

namespace clb {

/// The manual: its pages (index.html is the first), their style and their pictures, all for one
/// folder. Embedded from help/.
EmbeddedFiles HelpFiles();

}  // namespace clb
