#include "app/HistoryCommands.h"

#include <algorithm>

#include "app/StepPlaces.h"
#include "app/frmController.h"
#include "app/frmHistory.h"
#include "base/Product.h"

namespace clb {
namespace {

void ShowOutcome(frmController& window, const HistoryOutcome& outcome, bool undone)
{
    if (outcome.steps.empty())
        return;
    const TreeNode shown = window.View().ShownNode();
    const GridSpot current = window.Grid.CurrentSpot();
    window.ReloadWindow();
    const bool found = ShowTouched(window, outcome.touched);
    const bool sameColumns = window.View().ShownNode().tag == shown.tag && window.Grid.Bound();
    if (sameColumns && !found)
        window.Grid.ReturnTo(current);
    else if (sameColumns)
        window.Grid.Col(std::max(current.column, kFirstColumn));
    window.Results().Show(outcome, undone);
}

/// What the user has typed becomes a step of its own first, so nothing typed is lost.
void TakeSteps(frmController& window, std::int64_t steps, bool undo)
{
    if (!window.Grid.MayLoseFocus())
        return;
    try {
        ShowOutcome(window, undo ? window.Steps().Undo(steps) : window.Steps().Redo(steps), undo);
    } catch (const HistoryRefusal& refusal) {
        window.GivenPorts().messages.Show(refusal.what(), box_style::Exclamation, product::kTitle);
    }
}

}  // namespace

void UndoSteps(frmController& window, std::int64_t steps)
{
    TakeSteps(window, steps, true);
}

void RedoSteps(frmController& window, std::int64_t steps)
{
    TakeSteps(window, steps, false);
}

void ShowHistory(frmController& window)
{
    if (!window.Grid.MayLoseFocus())
        return;
    const Ports& ports = window.GivenPorts();
    frmHistory(window.Steps(), ports.modal, ports.dates, ports.clock.Now(),
               [&window](bool undo, std::int64_t steps) { TakeSteps(window, steps, undo); })
        .ShowDialog();
}

}  // namespace clb
