// The commands of the model: months, transactions, the budget, options, statements and quotes.

#include <algorithm>

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

constexpr std::size_t kTextWidth = 50;
const char* const kZeroDate = "1899-12-30";

BudgetMonth MonthOf(const std::string& date)
{
    return {std::stoi(date.substr(0, 4)), std::stoi(date.substr(5, 2))};
}

/// Half of the amount in whole cents, half to even.
Amount HalfToCents(Amount amount)
{
    constexpr Amount twoCents = 200;
    const Amount size = std::abs(amount);
    Amount cents = size / twoCents;
    const Amount rest = size % twoCents;
    if (2 * rest > twoCents || (2 * rest == twoCents && cents % 2 == 1))
        ++cents;
    return (amount < 0 ? -cents : cents) * 100;
}

}  // namespace

void ModelWindow::Do(const Action& action)
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
        case Deed::Export: return;
        case Deed::Reopen:
            if (Save())
                Open();
            return;
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

/// What the user does after the runtime's report: gives up the row and shows the view again.
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

void ModelWindow::Import(const Statement& statement, const Action& action)
{
    std::string id = statement.account;
    if (FindAccount(id, action)) {
        if (statement.records)
            ReadRecords(statement, id);
        else
            ReadMarkup(statement, id);
    }
    books_.UpdateBalances();
    Refresh();
    ShowImportedAccount();
}

bool ModelWindow::FindAccount(std::string& id, const Action& action)
{
    static const char* const descriptions[] = {"Visa", "Imported", "O'Neil's"};
    static const char* const types[] = {"Bank", "Cash", "Credit Card", "Investment"};
    if (!id.empty() && books_.HasAccount(id))
        return true;
    switch (Around(action.second, 5)) {
        case 0:
        case 1: break;
        case 2:
        case 3: return MapAccount(id, action.third);
        default:
            // Nothing is entered, then the dialog is cancelled.
            if (action.third % 2 == 0)
                boxes_.push_back("You must enter an account description.");
            return false;
    }
    if (id.empty()) {
        id = "New Account";
        for (int n = 2; books_.HasAccount(id); ++n)
            id = "New Account (" + std::to_string(n) + ")";
    }
    Account account;
    account.id = id;
    account.description = descriptions[Around(action.third, 3)];
    account.type = types[Around(action.third, 4)];
    books_.Add(account);
    ShowInTree(id);
    return true;
}

bool ModelWindow::MapAccount(std::string& id, int which)
{
    if (books_.accounts.empty())
        return false;
    const std::string description =
        books_.accounts[Around(which, books_.accounts.size())].description;
    if (id.empty()) {
        id = books_.FirstWithDescription(description)->id;
        return true;
    }
    for (Account& account : books_.accounts)
        if (account.description == description)
            books_.Renumber(account, id);
    ShowInTree(id);
    // The shown account may be the one whose number changed.
    const std::string kind = std::to_string(view_) + '\x01';
    if (view_ > 3 && FindTag(kind + account_) == 0 && FindTag(kind + id) != 0)
        account_ = id;
    return true;
}

void ModelWindow::ShowInTree(const std::string& id)
{
    BuildTree();
    for (const char* kind : {"4\x01", "5\x01", "6\x01"})
        if (const std::size_t node = FindTag(kind + id); node != 0) {
            selected_ = static_cast<int>(node);
            return;
        }
}

void ModelWindow::ShowImportedAccount()
{
    const std::string& tag = tree_[static_cast<std::size_t>(selected_ - 1)].tag;
    if (view_ > 3 && tag.size() > 1 && tag != std::to_string(view_) + '\x01' + account_)
        ClickNode(static_cast<std::size_t>(selected_));
}

void ModelWindow::ReadMarkup(const Statement& statement, const std::string& id)
{
    for (const StatementRecord& entry : statement.entries) {
        bool searched = false;
        bool known = false;
        for (const Transaction& row : books_.transactions) {
            searched = searched || row.account == id;
            known = known || (row.account == id && row.fitid == entry.fitid);
        }
        // Settled: the identifier stands in the criterion as it is. Among no rows nothing is
        // looked for.
        const bool readable = !searched || entry.fitid.find('\'') == std::string::npos;
        if (readable && known)
            continue;
        if (!readable || entry.date.second.empty() || entry.amount.second.empty()) {
            boxes_.push_back("Invalid data was found while importing:");
            return;
        }
        Transaction row;
        row.account = id;
        row.fitid = entry.fitid;
        row.check = entry.check;
        row.date = entry.date.second;
        row.month = MonthOf(row.date);
        row.amount = ParseAmount(entry.amount.second);
        row.description = entry.name.empty() ? "(blank)" : entry.name;
        row.notes = First(entry.memo, kTextWidth);
        row.category = "(none)";
        row.sequence = books_.NextSequence();
        books_.EnsureLine("(none)", row.month, "(none)", 0);
        books_.Add(row);
    }
}

void ModelWindow::ReadCategories(const Statement& statement)
{
    for (const StatementCategory& line : statement.categories) {
        Amount sum = 0;
        for (const std::string& amount : line.amounts)
            sum += ParseAmount(amount);
        books_.EnsureLine(line.category, month_, line.group, sum);
    }
}

void ModelWindow::ReadRecords(const Statement& statement, const std::string& id)
{
    const std::string run = "run " + std::to_string(++books_.runs);
    ReadCategories(statement);
    std::string date = kZeroDate;
    std::string skipped;
    for (const StatementRecord& entry : statement.entries) {
        if (entry.hasDate && entry.date.second.empty())
            skipped += "\nD" + entry.date.first;
        else if (entry.hasDate)
            date = entry.date.second;
        ReadEntry(entry, date, id, run, skipped);
    }
    if (!skipped.empty())
        boxes_.push_back(
            "Invalid data was found while importing. The following lines were skipped:" + skipped);
}

void ModelWindow::ReadEntry(const StatementRecord& entry, const std::string& date,
                            const std::string& id, const std::string& run, std::string& skipped)
{
    const std::string check = entry.check == "0" ? "" : entry.check;
    const Amount amount = entry.amount.second.empty() ? 0 : ParseAmount(entry.amount.second);
    // Settled: the check number stands in the query as it is.
    if (check.find('\'') != std::string::npos) {
        skipped += "\n^";
        return;
    }
    if (HasRecord(entry, date, amount, check, id, run))
        return;
    if (entry.category.size() > kTextWidth) {
        skipped += "\n^";
        return;
    }
    Transaction row;
    row.account = id;
    row.fitid = run;
    row.month = MonthOf(date);
    row.date = date;
    row.amount = amount;
    row.description = entry.name.empty() ? "(Blank)" : entry.name;
    row.notes = First(entry.memo, kTextWidth);
    row.check = check;
    row.category = entry.category;
    row.sequence = books_.NextSequence();
    books_.EnsureLine(row.category, row.month, "(none)", 0);
    books_.Add(row);
}

bool ModelWindow::HasRecord(const StatementRecord& entry, const std::string& date, Amount amount,
                            const std::string& check, const std::string& id,
                            const std::string& run) const
{
    return std::any_of(books_.transactions.begin(), books_.transactions.end(),
                       [&](const Transaction& row) {
                           return row.account == id && row.date == date && row.amount == amount &&
                                  row.notes == First(entry.memo, kTextWidth) && row.fitid != run &&
                                  (check.empty() || row.check == check);
                       });
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
        if (++request == action.second) {
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
    // One field short, when there is no price.
    return "\"" + symbol + "\"," + (price.empty() ? "9.99" + rest : price + rest + ",1000") +
           "\r\n";
}

}  // namespace clb::model
