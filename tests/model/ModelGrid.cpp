// The grid of the model: moving around, typing, saving and deleting rows.

#include <algorithm>
#include <array>

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

template <class Row>
Row& At(std::vector<Row>& table, long Row::*identity, long row)
{
    return *std::find_if(table.begin(), table.end(),
                         [&](const Row& one) { return one.*identity == row; });
}

template <class Row>
void Erase(std::vector<Row>& table, long Row::*identity, long row)
{
    table.erase(std::find_if(table.begin(), table.end(),
                             [&](const Row& one) { return one.*identity == row; }));
}

}  // namespace

std::size_t ModelWindow::RowOf(int number) const
{
    const std::size_t count = Lines().size();
    if (number == kLastRow)
        return count;
    return number == kCurrentRow ? row_ : Around(number, count) + 1;
}

ModelWindow::Spot ModelWindow::SpotOf(std::size_t row) const
{
    Spot spot{row, Lines().at(row - 1), 0};
    if (spot.line.kind == Kind::Data && view_ == 4)
        spot.sequence = std::stol(Stored(spot.line.row)[10]);
    return spot;
}

std::size_t ModelWindow::Find(const Spot& spot) const
{
    const std::vector<Line> lines = Lines();
    const auto find = [&lines](const auto& fits) {
        const auto found = std::find_if(lines.begin(), lines.end(), fits);
        return found == lines.end() ? 0 : static_cast<std::size_t>(found - lines.begin()) + 1;
    };
    if (const std::size_t row = find([&](const Line& line) {
            return line.kind == spot.line.kind &&
                   (line.kind == Kind::Data ? line.row == spot.line.row
                                            : line.group == spot.line.group);
        }))
        return row;
    if (spot.sequence != 0)
        if (const std::size_t row = find([&](const Line& line) {
                return line.kind == Kind::Data &&
                       Stored(line.row)[10] == std::to_string(spot.sequence);
            }))
            return row;
    return std::min(std::max<std::size_t>(spot.place, 1), lines.size());
}

bool ModelWindow::EndEdit()
{
    if (editing_ && text_ && !text_->taken) {
        marked_ = true;
        return false;
    }
    if (editing_ && text_)
        typed_[column_] = text_->value;
    CancelEdit();
    Choose();
    return true;
}

void ModelWindow::CancelEdit()
{
    editing_ = marked_ = false;
    text_.reset();
}

/// The text of the cell in edit: as shown, but amounts keep their fractions of a cent.
std::string ModelWindow::EditText() const
{
    if (text_)
        return text_->text;
    Value value = Cell(column_);
    const bool isAmount =
        ColumnsOf(view_)[static_cast<std::size_t>(column_ - 1)].content == Content::Amount;
    if (!isAmount || value.empty())
        return value;
    return ParseAmount(value) % 100 == 0 ? Grouped(ParseAmount(value)) : value;
}

bool ModelWindow::MoveTo(std::size_t row, int column)
{
    if (!EndEdit())
        return false;
    if (row != row_) {
        const Spot meant = SpotOf(row);
        if (!Save())
            return false;
        row_ = Find(meant);
    }
    column_ = column;
    Choose();
    return true;
}

/// Opens a cell and types. Returns false if the cell accepts nothing or another cell stays in edit.
bool ModelWindow::Begin(const Action& action)
{
    const std::vector<Column>& columns = ColumnsOf(view_);
    const std::size_t at = Around(action.second, columns.size());
    const std::size_t row = RowOf(action.first);
    inGrid_ = true;
    if (!MoveTo(row, static_cast<int>(at) + 1))
        return false;
    const Kind kind = Current().kind;
    if (!columns[at].typed || (kind != Kind::Data && kind != Kind::New))
        return false;
    editing_ = true;
    text_ = (*columns[at].texts)[Around(action.third, columns[at].texts->size())];
    return true;
}

/// A click on the arrow of a group's heading.
void ModelWindow::Fold(int number)
{
    const std::size_t row = RowOf(number);
    inGrid_ = true;
    if (!MoveTo(row, column_) || Current().kind != Kind::Heading)
        return;
    const std::string group = Current().group;
    if (folded_.erase(group) == 0)
        folded_.insert(group);
}

/// A group that disappeared is open when it comes back.
void ModelWindow::ForgetFolded()
{
    std::set<std::string> left;
    for (const Line& line : Lines())
        if (line.kind == Kind::Heading && folded_.contains(line.group))
            left.insert(line.group);
    folded_ = left;
}

bool ModelWindow::Leave()
{
    if (inGrid_ && !Save())
        return false;
    inGrid_ = false;
    return true;
}

bool ModelWindow::Save()
{
    if (!EndEdit())
        return false;
    if (!Dirty())
        return true;
    int column = 0;
    if (const std::string message = Refusal(column); !message.empty()) {
        boxes_.push_back(message);
        column_ = column;
        editing_ = marked_ = inGrid_ = true;
        return false;
    }
    static const std::array<const char*, 6> names = {"Account",     "Budget Line", "Account",
                                                     "Transaction", "Holding",     "Loan"};
    const std::string step =
        (HasRow() ? "Edit " : "New ") + std::string(names.at(static_cast<std::size_t>(view_ - 1)));
    history_.Note(books_, command_);
    const long row = StoreRow();
    typed_.clear();
    oldPrices_.erase(row);
    if (std::find(rows_.begin(), rows_.end(), row) == rows_.end())
        rows_.push_back(row);
    ForgetFolded();
    if (view_ == 2)
        folded_.erase(Stored(row)[5]);
    const std::vector<Line> lines = Lines();
    for (std::size_t at = 0; at < lines.size(); ++at)
        if (lines[at].kind == Kind::Data && lines[at].row == row)
            row_ = at + 1;
    Balance();
    history_.Note(books_, step);
    Choose();
    if (ListsAccounts()) {
        // Selects the node at the same place again, whichever node that is now.
        const int selected = selected_;
        BuildTree();
        if (selected <= static_cast<int>(tree_.size()))
            selected_ = selected;
    }
    return true;
}

std::string ModelWindow::Refusal(int& column) const
{
    const auto refuse = [&column](int at, const char* message) {
        column = at;
        return std::string(message);
    };
    if (ListsAccounts()) {
        const int number = view_ == 1 ? 3 : 2;
        if (Cell(1).empty())
            return refuse(1, "Please enter an account description.");
        if (Cell(number).empty())
            return refuse(number, "Please enter an account #.");
        if (NumberTaken(Cell(number)))
            return refuse(number, "That account already exists.");
        if (view_ == 1 && Cell(2).empty())
            return refuse(2, "Please enter an account type.");
    }
    if (view_ == 2 && Cell(1).empty())
        return refuse(1, "Please enter a category.");
    return "";
}

bool ModelWindow::NumberTaken(const std::string& id) const
{
    const Line line = Current();
    return std::any_of(books_.accounts.begin(), books_.accounts.end(), [&](const Account& one) {
        return one.id == id && (line.kind == Kind::New || one.sequence != line.row);
    });
}

ModelWindow::Value ModelWindow::Cell(int column) const
{
    const auto typed = typed_.find(column);
    if (typed != typed_.end())
        return typed->second;
    const Line line = Current();
    return line.kind == Kind::Data ? Stored(line.row)[static_cast<std::size_t>(column - 1)]
                                   : Value();
}

void ModelWindow::Take(int column, std::string& text) const
{
    if (const auto typed = typed_.find(column); typed != typed_.end())
        text = typed->second;
}

void ModelWindow::Take(int column, Amount& amount) const
{
    if (const auto typed = typed_.find(column); typed != typed_.end())
        amount = typed->second.empty() ? 0 : ParseAmount(typed->second);
}

long ModelWindow::StoreRow()
{
    switch (view_) {
        case 1:
        case 3: return StoreAccount();
        case 2: return StoreLine();
        case 4: return StoreTransaction();
        case 5: return StoreHolding();
        default: return StoreLoan();
    }
}

long ModelWindow::StoreAccount()
{
    const Line line = Current();
    const bool netWorth = view_ == 1;
    Account& account = line.kind == Kind::New ? books_.Add(Account{})
                                              : At(books_.accounts, &Account::sequence, line.row);
    Take(1, account.description);
    if (netWorth)
        Take(2, account.type);
    else
        account.type = type_;
    Take(netWorth ? 4 : 3, account.opening);
    std::string id = account.id;
    Take(netWorth ? 3 : 2, id);
    if (line.kind == Kind::New)
        account.id = id;
    else
        books_.Renumber(account, id);
    return account.sequence;
}

long ModelWindow::StoreLine()
{
    const Line current = Current();
    BudgetLine& line = current.kind == Kind::New
                           ? books_.Add(BudgetLine{})
                           : At(books_.lines, &BudgetLine::sequence, current.row);
    Take(1, line.category);
    Take(2, line.amount);
    Take(6, line.group);
    if (line.group.empty())
        line.group = "(none)";
    line.month = month_;
    return line.sequence;
}

long ModelWindow::StoreTransaction()
{
    const Line line = Current();
    const std::string category = Cell(5).empty() ? "(none)" : Cell(5);
    if (std::find(offered_.begin(), offered_.end(), category) == offered_.end())
        offered_.push_back(category);
    if (books_.flaw != Flaw::ForgetsBudgetLine)
        books_.EnsureLine(category, month_, "(none)", 0);
    if (line.kind == Kind::New) {
        Transaction added;
        added.sequence = books_.NextSequence();
        added.account = account_;
        added.month = month_;
        books_.Add(added);
    }
    Transaction& row = line.kind == Kind::New
                           ? books_.transactions.back()
                           : At(books_.transactions, &Transaction::row, line.row);
    Take(1, row.date);
    Take(2, row.description);
    Take(3, row.amount);
    Take(4, row.check);
    row.category = category;
    Take(6, row.notes);
    return row.row;
}

long ModelWindow::StoreHolding()
{
    const Line line = Current();
    Holding& row = line.kind == Kind::New ? books_.Add(Holding{})
                                          : At(books_.holdings, &Holding::sequence, line.row);
    Take(1, row.symbol);
    Take(2, row.name);
    Take(3, row.date);
    Take(4, row.quantity);
    Take(5, row.purchase);
    Take(6, row.last);
    Take(7, row.total);
    row.account = account_;
    return row.sequence;
}

long ModelWindow::StoreLoan()
{
    const Line line = Current();
    Loan& row =
        line.kind == Kind::New ? books_.Add(Loan{}) : At(books_.loans, &Loan::sequence, line.row);
    Take(1, row.description);
    Take(2, row.original);
    Take(3, row.paid);
    Take(4, row.rate);
    row.account = account_;
    return row.sequence;
}

void ModelWindow::Escape()
{
    if (editing_)
        CancelEdit();
    else
        typed_.clear();
    Choose();
}

void ModelWindow::Delete(bool yes)
{
    const Line line = Current();
    if (line.kind != Kind::Data)
        return;
    CancelEdit();
    boxes_.push_back("Are you sure you want to delete this record?");
    if (!yes)
        return;
    std::size_t node = 0;
    if (view_ == 2) {
        // As the grid shows it, even if it may not be saved.
        const std::string category = Cell(1);
        const bool used = std::any_of(books_.transactions.begin(), books_.transactions.end(),
                                      [&](const Transaction& row) {
                                          return row.category == category && row.month == month_;
                                      });
        if (used)
            books_.EnsureLine("(none)", month_, "(none)", 0);
        books_.DropCategory(category, month_);
    } else if (ListsAccounts()) {
        const Account& account = At(books_.accounts, &Account::sequence, line.row);
        node = FindTag(std::to_string(ViewOfType(account.type)) + '\x01' + account.id);
    }
    RemoveRow(line.row);
    rows_.erase(std::find(rows_.begin(), rows_.end(), line.row));
    typed_.clear();
    ForgetFolded();
    row_ = std::min(row_, Lines().size());
    Balance();
    if (node == 0)
        return Choose();
    RemoveNode(node);
    ClickNode(static_cast<std::size_t>(selected_));
}

void ModelWindow::RemoveRow(long row)
{
    if (ListsAccounts())
        Erase(books_.accounts, &Account::sequence, row);
    else if (view_ == 2)
        Erase(books_.lines, &BudgetLine::sequence, row);
    else if (view_ == 4)
        Erase(books_.transactions, &Transaction::row, row);
    else if (view_ == 5)
        Erase(books_.holdings, &Holding::sequence, row);
    else
        Erase(books_.loans, &Loan::sequence, row);
}

}  // namespace clb::model
