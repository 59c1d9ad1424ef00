#include "app/StepResult.h"

#include <utility>

#include "app/HistoryCommands.h"
#include "app/StatementWords.h"
#include "app/frmController.h"

namespace clb {
namespace {

constexpr const char* kNotice = "result";

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
    std::vector<ResultBar::Action> actions;
    if (steps > 0)
        actions.push_back({undo ? "Undo" : "Redo", [&window = window_, steps, undo] {
                               if (undo)
                                   UndoSteps(window, steps);
                               else
                                   RedoSteps(window, steps);
                           }});
    Say(text, std::move(actions));
}

void StepResult::Say(const std::string& text, std::vector<ResultBar::Action> actions)
{
    if (!window_.GivenPorts().showsResults)
        return;
    shownAt_ = Present();
    window_.result.Show(text, std::move(actions));
}

void StepResult::Note(const std::string& text)
{
    if (!window_.GivenPorts().showsResults)
        return;
    notedAt_ = PresentSteps();
    window_.notices.Inform(kNotice, text);
}

void StepResult::Follow()
{
    if (notedAt_ && *notedAt_ != PresentSteps()) {
        notedAt_.reset();
        window_.notices.Inform(kNotice, "");
    }
    if (window_.result.Shown() && Present() != shownAt_)
        window_.result.Close();
}

StepResult::Steps StepResult::PresentSteps() const
{
    const auto number = [](const std::optional<Step>& step) { return step ? step->number : 0; };
    return {number(window_.Steps().NextToUndo()), number(window_.Steps().NextToRedo())};
}

StepResult::Situation StepResult::Present() const
{
    const clsView& view = window_.View();
    const TreeNode node = view.ShownNode();
    return {PresentSteps(), node.tag + node.text, view.Year(), view.Period()};
}

std::string StepResult::Sentence(const HistoryOutcome& outcome, bool undone) const
{
    std::int64_t rows = 0;
    for (const Step& step : outcome.steps)
        rows += step.rows;
    const Step& first = outcome.steps.front();
    const std::string what =
        outcome.steps.size() > 1
            ? statement_words::Counted(outcome.steps.size(), "step")
            : first.what + (window_.Steps().IsOfAnother(first) ? " of another program" : "");
    return (undone ? "Undone: " : "Redone: ") + what + " (" +
           statement_words::Counted(static_cast<std::size_t>(rows), "row") + ")";
}

}  // namespace clb
