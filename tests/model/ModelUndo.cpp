// The history's commands of the model.

#include "tests/model/ModelWindow.h"

namespace clb::model {

/// What the history calls the changes of the action, apart from the rows that it saves.
std::string ModelWindow::StepName(const Action& action) const
{
    switch (action.deed) {
        case Deed::DeleteByMenu:
        case Deed::DeleteByButton: return "Delete Record";
        case Deed::MoveBack: return "Move To Previous Month";
        case Deed::MoveForward: return "Move To Next Month";
        case Deed::Split: return "Split Transaction";
        case Deed::CopyBudget: return "Copy Budget From Previous Month";
        case Deed::Options: return "Options";
        case Deed::Quotes: return "Update Quotes";
        case Deed::ImportMarkup: return "Import of statement" + std::to_string(files_) + ".ofx";
        case Deed::ImportRecords: return "Import of statement" + std::to_string(files_) + ".qif";
        default: return "no step";
    }
}

/// Returns false if there is no step.
bool ModelWindow::TakeSteps(bool undo, std::size_t count)
{
    bool any = false;
    for (; count > 0; --count) {
        const Tables* const now = undo ? history_.Back() : history_.Forward();
        if (!now)
            break;
        const auto lines = books_.lines;
        static_cast<Tables&>(books_) = *now;
        if (books_.flaw == Flaw::UndoKeepsBudget)
            books_.lines = lines;
        any = true;
    }
    if (!any)
        return false;
    Reload();
    return true;
}

/// A disabled command does nothing. The others save the row first.
void ModelWindow::TakeOneByOne(bool undo, const Action& action)
{
    for (int count = action.first % 4; count >= 0; --count)
        if ((undo ? history_.Done() : history_.Undone()) > 0 && Save())
            TakeSteps(undo, 1);
}

void ModelWindow::GoBackTo(int step)
{
    if (!Save())
        return;
    boxes_.push_back("history" + history_.List());
    const std::size_t count = history_.Done() + history_.Undone();
    if (count == 0)
        return;
    const std::size_t number = count - Around(step, count);
    if (number <= history_.Done())
        TakeSteps(true, history_.Done() - number + 1);
    else
        TakeSteps(false, number - history_.Done());
}

/// Shows the view again. If the shown account has another number now, shows that one; if the
/// selected node is gone, shows the first.
void ModelWindow::Reload()
{
    const auto place = static_cast<std::size_t>(selected_);
    const Node shown = tree_[place - 1];
    BuildTree();
    const std::size_t node = NodeLike(shown, place);
    if (node == 0 || (view_ > 3 && tree_[node - 1].tag != shown.tag))
        return ClickNode(std::max<std::size_t>(node, 1));
    selected_ = static_cast<int>(node);
    Refresh();
}

void ModelWindow::StandAt(const Standing& standing)
{
    const int view = tree_[static_cast<std::size_t>(standing.node) - 1].tag[0] - '0';
    // The tree may select another node than the one that is shown.
    if (view == standing.view &&
        (standing.node != selected_ || view != view_ || !(standing.month == month_))) {
        month_ = standing.month;
        ClickNode(static_cast<std::size_t>(standing.node));
    }
    std::size_t heading = 0;
    for (const Line& line : Lines())
        if (line.kind == Kind::Heading && !standing.folded.at(heading++))
            folded_.erase(line.group);
    row_ = standing.row;
    column_ = standing.column;
    inGrid_ = standing.inGrid;
    Choose();
    account_ = standing.account;
    type_ = standing.type;
}

}  // namespace clb::model
