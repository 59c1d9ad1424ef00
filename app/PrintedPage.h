// The page that the command Print prints.
#pragma once

#include "grid/CVGrid.h"

namespace clb {

class frmController;

/// Title, month and totals of what the window shows.
[[nodiscard]] GridPage PrintedPage(frmController& window);

}  // namespace clb
