// The commands of the model: months, transactions, the budget, options and quotes.

#include <algorithm>

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

constexpr std::size_t kTextWidth = 50;

/// Half of the amount in whole cents, half to even.
Amount HalfToCents(Amount amount)
{
    constexpr Amount kTwoCents = 200;
    const Amount size = std::abs(amount);
    Amount cents = size / kTwoCents;
    const Amount rest = size % kTwoCents;
    if (2 * rest > kTwoCents || (2 * rest == kTwoCents && cents % 2 == 1))
        ++cents;
    return (amount < 0 ? -cents : cents) * 100;
}

}  // namespace

void ModelWindow::Do(const Action& action)
{
    if (action.deed == Deed::ImportMarkup || action.deed == Deed::ImportRecords ||
        action.deed == Deed::Export)
        ++files_;
    command_ = StepName(action);
    Perform(action);
    history_.Note(books_, command_);
}

void ModelWindow::Perform(const Action& action)
{
    switch (action.deed) {
        case Deed::Press: return PressNode(Around(action.first, tree_.size()) + 1);
        case Deed::Month:
            return ShowMonth({month_.year, static_cast<int>(Around(action.first, 12)) + 1});
        case Deed::Year: {
            const int year = std::stoi(Years()[Around(action.first, Years().size())]);
            // The same text changes nothing.
            return year == month_.year ? static_cast<void>(Leave())
                                       : ShowMonth({year, month_.period});
        }
        case Deed::Spin:
            return ShowMonth({month_.year + (action.first % 2 == 1 ? 1 : -1), month_.period});
        case Deed::Back: return StepMonth(-1);
        case Deed::Forward: return StepMonth(1);
        case Deed::Click: {
            const std::size_t row = RowOf(action.first);
            inGrid_ = true;
            MoveTo(row, static_cast<int>(Around(action.second, ColumnsOf(view_).size())) + 1);
            return;
        }
        case Deed::Type:
            if (Begin(action) && !EndEdit())
                CancelEdit();
            return;
        case Deed::Begin: Begin(action); return;
        case Deed::Fold: return Fold(action.first);
        case Deed::Save: Save(); return;
        case Deed::Escape: return Escape();
        case Deed::NewByMenu:
            if (CanNew())
                NewRecord();
            return;
        case Deed::NewByButton:
            if (CanNew() && Save())
                NewRecord();
            return;
        case Deed::DeleteByMenu:
            if (CanDelete())
                Delete(action.first != 0);
            return;
        case Deed::DeleteByButton:
            if (CanDelete() && Save())
                Delete(action.first != 0);
            return;
        case Deed::MoveBack: return Move(-1);
        case Deed::MoveForward: return Move(1);
        case Deed::Split: return Split(action);
        case Deed::CopyBudget: return CopyBudget();
        case Deed::Options: return Options(action);
        case Deed::ImportMarkup: return Import(Statement::Markup(action.first), action);
        case Deed::ImportRecords: return Import(Statement::Records(action.first), action);
        case Deed::Quotes: return Quotes(action);
        case Deed::Export:
            if (CanExport())
                boxes_.push_back("exported " + Exported());
            return;
        case Deed::Reopen:
            if (Save())
                Open(action.first);
            return;
        case Deed::Kill: return Open(action.first);
        case Deed::Undo: return TakeOneByOne(true, action);
        case Deed::Redo: return TakeOneByOne(false, action);
        case Deed::GoBackTo: return GoBackTo(action.first);
        case Deed::ImportOther: boxes_.push_back("Invalid file format."); return Open(0);
        default: return;
    }
}

void ModelWindow::ShowMonth(BudgetMonth month)
{
    if (!Leave())
        return;
    month_ = month;
    Refresh();
}

void ModelWindow::StepMonth(int direction)
{
    if (!Save())
        return;
    month_ = direction > 0 ? month_.Next() : month_.Previous();
    Refresh();
}

void ModelWindow::NewRecord()
{
    MoveTo(Lines().size(), column_);
    // A row or a text that was refused keeps its cell to correct.
    if (HasRow() || !EndEdit())
        return;
    column_ = 1;
    editing_ = inGrid_ = true;
}

void ModelWindow::Move(int direction)
{
    if (!OnTransaction() || Current().kind != Kind::Data)
        return;
    const Spot spot = SpotOf(row_);
    const std::string category = Cell(5);
    const auto found =
        std::find_if(books_.transactions.begin(), books_.transactions.end(),
                     [&](const Transaction& row) { return row.row == spot.line.row; });
    found->month = direction > 0 ? found->month.Next() : found->month.Previous();
    books_.EnsureLine(category, found->month, "(none)", 0);
    CancelEdit();
    typed_.clear();
    rows_ = Query();
    row_ = Find(spot);
}

void ModelWindow::Split(const Action& action)
{
    if (!OnTransaction() || Current().kind != Kind::Data)
        return;
    const std::string shown = Cell(3);
    const Amount whole = shown.empty() ? 0 : ParseAmount(shown);
    const std::size_t which = Around(action.first, SplitAmounts().size());
    const Typed& second = SplitAmounts()[which];
    if (action.second == 0 || !second.taken)
        return;
    const Amount amount = which == 0 ? HalfToCents(whole) : ParseAmount(second.value);
    if (!Save())
        return;
    const Spot spot = SpotOf(row_);
    long last = 0;
    for (const Transaction& row : books_.transactions)
        if (row.sequence == spot.sequence)
            last = std::max(last, row.piece);
    const auto found =
        std::find_if(books_.transactions.begin(), books_.transactions.end(),
                     [&](const Transaction& row) { return row.row == spot.line.row; });
    Transaction added = *found;
    if (books_.flaw != Flaw::SplitKeepsWholeAmount)
        found->amount = whole - amount;
    added.amount = amount;
    added.piece = last + 1;
    added.description =
        First(First(added.description, kTextWidth) + " (split #" + std::to_string(last + 1) + ")",
              kTextWidth);
    books_.Add(added);
    rows_ = Query();
    row_ = Find(spot);
}

void ModelWindow::CopyBudget()
{
    try {
        books_.CopyBudget(month_.Previous(), month_);
        Refresh();
    } catch (const Failure&) {
        Recover();
    }
}

/// What the user does after the report of a runtime error: discards the row and shows the view
/// again.
void ModelWindow::Recover()
{
    boxes_.push_back("failed");
    Escape();
    Escape();
    PressNode(static_cast<std::size_t>(selected_));
}

void ModelWindow::Options(const Action& action)
{
    std::vector<std::pair<std::string, bool>> listed;
    for (const Account& account : books_.accounts)
        if (ViewOfType(account.type) == 4)
            listed.emplace_back(account.id, account.include);
    if (!listed.empty())
        listed[Around(action.first, listed.size())].second = action.second % 2 == 1;
    if (action.third != 0)
        for (const auto& [id, include] : listed)
            for (Account& account : books_.accounts)
                if (account.id == id)
                    account.include = include;
    Refresh();
}

void ModelWindow::Quotes(const Action& action)
{
    if (view_ == 5)
        for (const long row : rows_)
            for (const Holding& holding : books_.holdings)
                if (holding.sequence == row)
                    oldPrices_.emplace(row, holding.last);
    int request = 0;
    for (Holding& holding : books_.holdings) {
        // A price that is not a number ends the command, as a failed request does.
        if (++request == action.second || holding.symbol == "ODD") {
            boxes_.push_back("Unable to update quotes.");
            return;
        }
        const std::string price = QuotedPrice(holding.symbol, action.first);
        if (!price.empty())
            holding.last = ParseAmount(price);
    }
}

std::string QuotedPrice(const std::string& symbol, int day)
{
    if (symbol == "ACME")
        return Plain(100000 + 2500 * (day % 7));
    return symbol == "X.Y" && day % 3 != 0 ? "0.75" : "";
}

std::string QuoteLine(const std::string& symbol, int day)
{
    const std::string price = QuotedPrice(symbol, day);
    const std::string rest = ",6/1/2006,4:00pm,+0.1,+1%,1,2,3,4,5";
    if (symbol == "GONE")
        return "\"GONE\",0.00,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A,N/A\r\n";
    if (symbol == "ODD")
        return "\"ODD\",some" + rest + ",100\r\n";
    // If there is no price, one field is missing.
    return "\"" + symbol + "\"," + (price.empty() ? "9.99" + rest : price + rest + ",1000") +
           "\r\n";
}

}  // namespace clb::model
