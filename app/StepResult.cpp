#include "app/StepResult.h"

#include <utility>

#include "app/HistoryCommands.h"
#include "app/frmController.h"

namespace clb {
namespace {

std::string Counted(std::int64_t number, const std::string& one)
{
    return std::to_string(number) + " " + one + (number == 1 ? "" : "s");
}

}  // namespace

void StepResult::Show(const HistoryOutcome& outcome, bool undone)
{
    if (!window_.GivenPorts().showsResults)
        return;
    Offer(Sentence(outcome, undone), !undone, static_cast<std::int64_t>(outcome.steps.size()));
}

bool StepResult::ShowRefusal(const std::string& why, bool undo)
{
    if (!window_.GivenPorts().showsResults)
        return false;
    const CommandBars& bars = window_.Bars();
    Offer(why, undo, (undo ? bars.NamedUndo() : bars.NamedRedo()) ? 1 : 0);
    return true;
}

/// No steps: there is nothing to offer.
void StepResult::Offer(const std::string& text, bool undo, std::int64_t steps)
{
    Say(text,
        steps == 0 ? ""
        : undo     ? "Undo"
                   : "Redo",
        [&window = window_, steps, undo] {
            if (undo)
                UndoSteps(window, steps);
            else
                RedoSteps(window, steps);
        });
}

void StepResult::Say(const std::string& text, const std::string& caption,
                     std::function<void()> action)
{
    if (!window_.GivenPorts().showsResults)
        return;
    shownAt_ = Present();
    window_.result.Show(text, caption, std::move(action));
}

void StepResult::Follow()
{
    if (window_.result.Shown() && Present() != shownAt_)
        window_.result.Close();
}

StepResult::Situation StepResult::Present() const
{
    const auto number = [](const std::optional<Step>& step) { return step ? step->number : 0; };
    const clsView& view = window_.View();
    const TreeNode node = view.ShownNode();
    return {number(window_.Steps().NextToUndo()), number(window_.Steps().NextToRedo()),
            node.tag + node.text, view.Year(), view.Period()};
}

std::string StepResult::Sentence(const HistoryOutcome& outcome, bool undone) const
{
    std::int64_t rows = 0;
    for (const Step& step : outcome.steps)
        rows += step.rows;
    const Step& first = outcome.steps.front();
    const std::string what =
        outcome.steps.size() > 1
            ? Counted(static_cast<std::int64_t>(outcome.steps.size()), "step")
            : first.what + (window_.Steps().IsOfAnother(first) ? " of another program" : "");
    return (undone ? "Undone: " : "Redone: ") + what + " (" + Counted(rows, "row") + ")";
}

}  // namespace clb
