// The commands of the menu History.
#pragma once
#include <cstdint>

namespace clb {

class frmController;

/// Undoes or redoes steps and shows the place that the last of them has touched. A step that cannot
/// be undone is reported in a box; nothing is changed then. Nor is it if another program has made
/// or taken back steps, so that the first step is not the one that the menu's caption names. The
/// result bar says so. A window without results throws it as RuntimeError (InvalidCall). Throw
/// EngineError.
void UndoSteps(frmController& window, std::int64_t steps);
void RedoSteps(frmController& window, std::int64_t steps);
/// Undoes steps that the running command has made and does not want to keep, in the same way.
void TakeBackSteps(frmController& window, std::int64_t steps);
/// Shows the dialog History.
void ShowHistory(frmController& window);

}  // namespace clb
