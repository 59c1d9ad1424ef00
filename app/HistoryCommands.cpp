#include "app/HistoryCommands.h"

#include <algorithm>

#include "app/StepPlaces.h"
#include "app/frmController.h"
#include "app/frmHistory.h"
#include "base/Product.h"
#include "base/RuntimeError.h"

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

void TakeSteps(frmController& window, std::int64_t steps, bool undo)
{
    try {
        ShowOutcome(window, undo ? window.Steps().Undo(steps) : window.Steps().Redo(steps), undo);
    } catch (const HistoryRefusal& refusal) {
        window.GivenPorts().messages.Show(refusal.what(), box_style::Exclamation, product::kTitle);
    }
}

std::int64_t NumberOf(const std::optional<Step>& step)
{
    return step ? step->number : 0;
}

/// Whether the next step is another one than the caption names. The row that the user has typed
/// does not count: it has just become a step of this program, which the caption cannot name yet.
bool IsOvertaken(frmController& window, bool undo)
{
    History& history = window.Steps();
    const CommandBars& bars = window.Bars();
    const std::optional<Step> newest = history.NextToUndo();
    if (newest && newest->program == history.Program() &&
        newest->number > std::max(NumberOf(bars.NamedUndo()), NumberOf(bars.NamedRedo())))
        return false;
    return undo ? NumberOf(newest) != NumberOf(bars.NamedUndo())
                : NumberOf(history.NextToRedo()) != NumberOf(bars.NamedRedo());
}

std::string WhatComesNext(frmController& window, bool undo)
{
    const CommandBars& bars = window.Bars();
    if (const std::optional<Step>& next = undo ? bars.NamedUndo() : bars.NamedRedo())
        return (undo ? "Undo would now take back '" : "Redo would now bring back '") + next->what +
               "'.";
    if (!undo)
        return "There is nothing left to redo.";
    return window.Steps().EndedAt().empty()
               ? "There is nothing left to undo."
               : "There is nothing left to undo since tables were changed.";
}

void ReportOvertaken(frmController& window, bool undo)
{
    window.FollowHistory();
    const std::string why = std::string("Nothing was ") + (undo ? "undone" : "redone") +
                            ", because another program has changed the book meanwhile. " +
                            WhatComesNext(window, undo);
    if (!window.Results().ShowRefusal(why, undo))
        throw RuntimeError(errors::InvalidCall, why);
}

/// What the user has typed becomes a step of its own first, so nothing typed is lost.
void TakeNamedSteps(frmController& window, std::int64_t steps, bool undo)
{
    if (!window.Grid.MayLoseFocus())
        return;
    // From here on no other program can change which step comes next.
    window.Steps().Lock();
    if (IsOvertaken(window, undo))
        ReportOvertaken(window, undo);
    else
        TakeSteps(window, steps, undo);
}

}  // namespace

void UndoSteps(frmController& window, std::int64_t steps)
{
    TakeNamedSteps(window, steps, true);
}

void RedoSteps(frmController& window, std::int64_t steps)
{
    TakeNamedSteps(window, steps, false);
}

void TakeBackSteps(frmController& window, std::int64_t steps)
{
    TakeSteps(window, steps, true);
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
