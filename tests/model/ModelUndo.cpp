// The history's commands of the model.

#include <algorithm>

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
    Tables before;
    bool any = false;
    for (; count > 0; --count) {
        const Tables* const now = undo ? history_.Back() : history_.Forward();
        if (!now)
            break;
        before = books_;
        static_cast<Tables&>(books_) = *now;
        if (books_.flaw == Flaw::UndoKeepsBudget)
            books_.lines = before.lines;
        any = true;
    }
    if (!any)
        return false;
    Reload();
    ShowPlace(before);
    return true;
}

void ModelWindow::TakeOneByOne(bool undo, const Action& action)
{
    if (action.second % 2 == 1 && !Save())
        return;
    for (int count = action.first % 4; count >= 0; --count)
        TakeSteps(undo, 1);
}

void ModelWindow::GoBackTo(int step)
{
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

/// Shows the first transaction that the step wrote, or else the first that it brought back.
void ModelWindow::ShowPlace(const Tables& before)
{
    for (const bool written : {true, false})
        for (const Transaction& row : books_.transactions) {
            const auto was =
                std::find_if(before.transactions.begin(), before.transactions.end(),
                             [&row](const Transaction& one) { return one.row == row.row; });
            const bool there = was != before.transactions.end();
            if (there == written && (!there || !(*was == row)) && books_.HasAccount(row.account))
                return ShowRow(row);
        }
}

void ModelWindow::ShowRow(const Transaction& row)
{
    const auto account = std::find_if(books_.accounts.begin(), books_.accounts.end(),
                                      [&row](const Account& one) { return one.id == row.account; });
    month_ = row.month;
    inGrid_ = false;
    ClickNode(FindTag(std::to_string(ViewOfType(account->type)) + '\x01' + account->id));
    const std::vector<Line> lines = Lines();
    for (std::size_t at = 0; view_ == 4 && at < lines.size(); ++at)
        if (lines[at].kind == Kind::Data && lines[at].row == row.row)
            row_ = at + 1;
    Choose();
}

}  // namespace clb::model
