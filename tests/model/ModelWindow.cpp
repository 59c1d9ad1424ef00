#include "tests/model/ModelWindow.h"

#include <algorithm>

namespace clb::model {
namespace {

std::string Number(long number)
{
    return std::to_string(number);
}

/// Rows of a table that belong to the view, sorted. Equal rows stay in the order in which they were
/// added.
template <class Row, class Belongs, class Less>
std::vector<long> Sorted(const std::vector<Row>& table, const Belongs& belongs, const Less& less,
                         long Row::*identity)
{
    std::vector<Row> rows;
    std::copy_if(table.begin(), table.end(), std::back_inserter(rows), belongs);
    std::stable_sort(rows.begin(), rows.end(), less);
    std::vector<long> all;
    all.reserve(rows.size());
    for (const Row& row : rows)
        all.push_back(row.*identity);
    return all;
}

template <class Row>
const Row& At(const std::vector<Row>& table, long Row::*identity, long row)
{
    return *std::find_if(table.begin(), table.end(),
                         [&](const Row& one) { return one.*identity == row; });
}

std::string Joined(const std::vector<std::string>& texts)
{
    std::string line;
    for (const std::string& text : texts)
        line += "|" + text;
    return line;
}

}  // namespace

ModelWindow::ModelWindow(Flaw flaw) : books_(Books::AtStart()), history_(books_)
{
    books_.flaw = flaw;
    Open(0);
}

void ModelWindow::Open(int day)
{
    const std::string present = PresentDays()[Around(day, PresentDays().size())];
    caption_ = "Net Worth - Corvane Ledgerbook";
    month_ = {std::stoi(present.substr(0, 4)), std::stoi(present.substr(5, 2))};
    view_ = 1;
    account_.clear();
    type_.clear();
    inGrid_ = false;
    BuildTree();
    Refresh();
}

void ModelWindow::OpenAt(BudgetMonth month)
{
    Open(0);
    month_ = month;
    Refresh();
}

void ModelWindow::Refresh()
{
    CancelEdit();
    typed_.clear();
    oldPrices_.clear();
    folded_.clear();
    rows_ = Query();
    offered_.clear();
    if (view_ == 4)
        for (const BudgetLine& line : books_.lines)
            if (line.month == month_)
                offered_.push_back(line.category);
    const std::vector<Line> lines = Lines();
    row_ = 1;
    while (row_ < lines.size() && lines[row_ - 1].kind != Kind::Data)
        ++row_;
    column_ = 1;
    Choose();
}

std::vector<long> ModelWindow::Query() const
{
    const auto all = [](const auto&) { return true; };
    const auto mine = [this](const auto& row) { return row.account == account_; };
    switch (view_) {
        case 1: return Sorted(books_.accounts, all, BeforeInList, &Account::sequence);
        case 2:
            return Sorted(
                books_.lines, [this](const BudgetLine& line) { return line.month == month_; },
                [](const BudgetLine& a, const BudgetLine& b) {
                    return a.group != b.group ? Before(a.group, b.group)
                                              : Before(a.category, b.category);
                },
                &BudgetLine::sequence);
        case 3:
            return Sorted(
                books_.accounts, [this](const Account& one) { return one.type == type_; },
                BeforeInList, &Account::sequence);
        case 4:
            return Sorted(
                books_.transactions,
                [this, &mine](const Transaction& row) { return mine(row) && row.month == month_; },
                [](const Transaction& a, const Transaction& b) {
                    if (a.date != b.date)
                        return a.date > b.date;
                    return a.sequence != b.sequence ? a.sequence > b.sequence : a.piece < b.piece;
                },
                &Transaction::row);
        case 5:
            return Sorted(
                books_.holdings, mine,
                [](const Holding& a, const Holding& b) { return a.date < b.date; },
                &Holding::sequence);
        default:
            return Sorted(
                books_.loans, mine,
                [](const Loan& a, const Loan& b) { return Before(a.description, b.description); },
                &Loan::sequence);
    }
}

std::vector<ModelWindow::Line> ModelWindow::Lines() const
{
    std::vector<Line> lines;
    if (view_ != 2) {
        for (const long row : rows_)
            lines.push_back({Kind::Data, row, ""});
    } else {
        std::vector<std::string> groups;
        const auto groupOf = [this](long row) {
            return At(books_.lines, &BudgetLine::sequence, row).group;
        };
        for (const long row : rows_)
            if (std::find(groups.begin(), groups.end(), groupOf(row)) == groups.end())
                groups.push_back(groupOf(row));
        for (const std::string& group : groups) {
            lines.push_back({Kind::Heading, 0, group});
            if (folded_.contains(group))
                continue;
            for (const long row : rows_)
                if (groupOf(row) == group)
                    lines.push_back({Kind::Data, row, group});
            lines.push_back({Kind::Footer, 0, group});
        }
    }
    lines.push_back({Kind::New, 0, ""});
    return lines;
}

std::vector<ModelWindow::Value> ModelWindow::Stored(long row) const
{
    switch (view_) {
        case 1: {
            const Account& a = At(books_.accounts, &Account::sequence, row);
            return {a.description, a.type, a.id, Plain(a.opening), Plain(a.opening + a.current),
                    Number(row)};
        }
        case 2: {
            const BudgetLine& l = At(books_.lines, &BudgetLine::sequence, row);
            return {l.category,           Plain(l.amount),        Number(row),
                    Number(l.month.year), Number(l.month.period), l.group};
        }
        case 3: {
            const Account& a = At(books_.accounts, &Account::sequence, row);
            return {a.description, a.id,  Plain(a.opening), Plain(a.opening + a.current),
                    Number(row),   a.type};
        }
        case 4: {
            const Transaction& t = At(books_.transactions, &Transaction::row, row);
            return {t.date,
                    t.description,
                    Plain(t.amount),
                    t.check,
                    t.category,
                    t.notes,
                    t.account,
                    Number(t.month.year),
                    Number(t.month.period),
                    RunNames().Of(t.fitid),
                    Number(t.sequence),
                    Number(t.piece)};
        }
        case 5: {
            const Holding& h = At(books_.holdings, &Holding::sequence, row);
            const auto old = oldPrices_.find(row);
            return {h.symbol,
                    h.name,
                    h.date,
                    h.quantity,
                    Plain(h.purchase),
                    Plain(old != oldPrices_.end() ? old->second : h.last),
                    Plain(h.total),
                    h.account,
                    Number(row)};
        }
        default: {
            const Loan& l = At(books_.loans, &Loan::sequence, row);
            return {l.description, Plain(l.original), Plain(l.paid),
                    l.rate,        l.account,         Number(row)};
        }
    }
}

std::vector<std::string> ModelWindow::Texts(const Line& line, bool current) const
{
    const std::vector<Column>& columns = ColumnsOf(view_);
    std::vector<Value> values(columns.size());
    if (line.kind == Kind::Data)
        values = Stored(line.row);
    values.resize(columns.size());
    if (current)
        for (const auto& [column, value] : typed_)
            values[static_cast<std::size_t>(column - 1)] = value;
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < columns.size(); ++at)
        texts.push_back(columns[at].content == Content::Amount && !values[at].empty()
                            ? Grouped(ParseAmount(values[at]))
                            : values[at]);
    if (line.kind == Kind::Data)
        Calculate(values, texts);
    return texts;
}

void ModelWindow::Calculate(const std::vector<Value>& values, std::vector<std::string>& texts) const
{
    const auto amount = [&values](std::size_t at) {
        return values[at].empty() ? 0 : ParseAmount(values[at]);
    };
    if (view_ == 2) {
        const Amount spent = books_.Spent(month_, values.data());
        texts[6] = Grouped(spent);
        texts[7] = Grouped(spent - amount(1));
    } else if (view_ == 6) {
        texts[6] = Grouped(amount(1) - amount(2));
    }
}

std::string ModelWindow::TextOf(const Line& line, bool current) const
{
    switch (line.kind) {
        case Kind::Data: return "data" + Joined(Texts(line, current));
        case Kind::New: return "new" + Joined(Texts(line, current));
        case Kind::Heading: {
            const auto items = std::count_if(
                rows_.begin(), rows_.end(), [&](long row) { return Stored(row)[5] == line.group; });
            return "heading|" + line.group + " (" + Number(items) + " items)";
        }
        case Kind::Footer:
            return "footer|Total (budgeted/actual): " +
                   Dollars(books_.Budgeted(month_, &line.group)) + " / " +
                   Dollars(books_.SpentOnGroup(month_, line.group));
    }
    return "";
}

std::string ModelWindow::Totals() const
{
    const auto two = [](const std::string& label, Amount first, Amount second) {
        return label + "|" + Grouped(first) + "|" + Grouped(second);
    };
    if (ListsAccounts()) {
        const auto [opening, current] = AccountTotals();
        return two(view_ == 1 ? "Total Net Worth:" : "Totals:", opening, current);
    }
    if (view_ == 2)
        return two("Month to date:", books_.Budgeted(month_, nullptr),
                   books_.Spent(month_, nullptr));
    if (view_ == 4)
        return two("Balance:", BalanceSoFar(), 0);
    Amount first = 0;
    if (view_ == 5) {
        for (const Holding& row : books_.holdings)
            first += row.account == account_ ? row.total : 0;
        return two("Total Investment:", first, 0);
    }
    // On purpose: the loans of every account.
    for (const Loan& row : books_.loans)
        if (books_.flaw != Flaw::OnlyShownLoans || row.account == account_)
            first += row.original - row.paid;
    return two("Total Loans:", first, 0);
}

/// The opening and the current balances of the accounts shown.
std::pair<Amount, Amount> ModelWindow::AccountTotals() const
{
    Amount opening = 0;
    Amount current = 0;
    for (const Account& account : books_.accounts)
        if (view_ == 1 || account.type == type_) {
            opening += account.opening;
            current += account.opening + account.current;
        }
    return {opening, current};
}

/// The account's balance at the end of the month.
Amount ModelWindow::BalanceSoFar() const
{
    bool any = false;
    Amount sum = 0;
    for (const Transaction& row : books_.transactions) {
        const bool counts = row.account == account_ &&
                            (row.month.year < month_.year ||
                             (row.month.year == month_.year && row.month.period <= month_.period));
        any = any || counts;
        sum += counts ? row.amount : 0;
    }
    const auto opening = std::find_if(books_.accounts.begin(), books_.accounts.end(),
                                      [this](const Account& one) { return one.id == account_; });
    // On purpose: without any transaction so far, not even the opening balance counts.
    return any ? sum + opening->opening : 0;
}

std::string ModelWindow::Position() const
{
    return "current|" + Number(static_cast<long>(row_)) + "|" + Number(column_) +
           (Dirty() ? "|unsaved" : "") + (editing_ ? "|editing " + EditText() : "") +
           (marked_ ? "|marked" : "") + (inGrid_ ? "|in the grid" : "");
}

/// What was spent on a budget line, transaction by transaction.
std::string ModelWindow::Tip(const Line& line, bool current) const
{
    const std::string category = current ? Cell(1) : Stored(line.row)[0];
    std::string list;
    int count = 0;
    for (const Transaction& row : books_.transactions)
        for (int times = books_.Counts(row.account); times > 0; --times)
            if (row.month == month_ && row.category == category) {
                ++count;
                list += "\r\n\r\nDate: " + row.date + "\r\nDescription: " + row.description +
                        "\r\nAmount: " + Dollars(row.amount);
            }
    return "tip|Number of transactions: " + Number(count) + list;
}

void ModelWindow::Choose()
{
    if (ListsAccounts() && HasRow()) {
        account_ = Cell(view_ == 1 ? 3 : 2);
        type_ = Cell(view_ == 1 ? 2 : 6);
    } else if (view_ > 4) {
        type_ = view_ == 5 ? "Investment" : "Loan";
    }
}

bool ModelWindow::CanExport() const
{
    const bool one = ListsAccounts() ? HasRow() : view_ > 3;
    return one && !editing_ && (type_ == "Bank" || type_ == "Cash" || type_ == "Credit Card");
}

std::vector<std::string> ModelWindow::Shown()
{
    std::vector<std::string> all;
    for (const std::string& box : boxes_)
        all.push_back("box|" + box);
    boxes_.clear();
    all.push_back("caption|" + caption_);
    all.push_back("view|" + Number(view_) + "|" + Number(month_.year) + "|" +
                  Number(month_.period));
    for (std::size_t node = 1; node <= tree_.size(); ++node) {
        const Node& one = tree_[node - 1];
        all.push_back("node|" + Number(static_cast<long>(one.parent)) + "|" + one.text + "|" +
                      one.key + "|" + one.tag +
                      (static_cast<int>(node) == selected_ ? "|selected" : ""));
    }
    const std::vector<Line> lines = Lines();
    for (std::size_t row = 1; row <= lines.size(); ++row)
        all.push_back(TextOf(lines[row - 1], row == row_));
    for (std::size_t row = 1; view_ == 2 && row <= lines.size(); ++row)
        if (lines[row - 1].kind == Kind::Data)
            all.push_back(Tip(lines[row - 1], row == row_));
    all.push_back("totals|" + Totals());
    all.push_back(Position());
    all.push_back(std::string("commands") + (CanNew() ? "|New" : "") +
                  (CanDelete() ? "|Delete" : "") + (OnTransaction() ? "|Transaction" : "") +
                  (CanExport() ? "|Export" : "") + history_.Captions());
    all.push_back("account|" + account_ + "|" + type_);
    all.push_back("offered" + Joined(offered_));
    return all;
}

}  // namespace clb::model
