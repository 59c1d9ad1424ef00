// Shows the rows that a step has touched.
#pragma once
#include <vector>

#include "history/StepApplier.h"

namespace clb {

class frmController;

/// Shows the view, the account and the month of one of these rows and makes the row current if it
/// is there. A row that another view shows as well is shown in the present one. Rows that no view
/// shows leave the window where it is. Returns whether a row was made current. Throws EngineError.
bool ShowTouched(frmController& window, std::vector<TouchedRow> touched);

}  // namespace clb
