#include "tests/model/ModelBooks.h"

#include <algorithm>
#include <cctype>

namespace clb::model {
namespace {

constexpr Amount kUnit = 10000;

/// Rounds to whole cents, half away from zero.
std::int64_t Cents(Amount amount)
{
    const std::int64_t size = (std::abs(amount) + 50) / 100;
    return amount < 0 ? -size : size;
}

std::string TwoDecimals(std::int64_t cents)
{
    const std::int64_t rest = cents % 100;
    return (rest < 10 ? ".0" : ".") + std::to_string(rest);
}

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? "''" : std::string(1, c);
    return quoted + "'";
}

}  // namespace

Amount ParseAmount(const std::string& plain)
{
    const bool negative = !plain.empty() && plain[0] == '-';
    const std::size_t from = negative ? 1 : 0;
    const std::size_t point = std::min(plain.find('.'), plain.size());
    std::string decimals = point < plain.size() ? plain.substr(point + 1) : std::string();
    decimals.resize(4, '0');
    const Amount amount =
        std::stoll(plain.substr(from, point - from)) * kUnit + std::stoll(decimals);
    return negative ? -amount : amount;
}

std::string Plain(Amount amount)
{
    std::string decimals = std::to_string(std::abs(amount) % kUnit + kUnit).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return (amount < 0 ? "-" : "") + std::to_string(std::abs(amount) / kUnit) +
           (decimals.empty() ? "" : "." + decimals);
}

std::string Grouped(Amount amount)
{
    const std::int64_t cents = Cents(amount);
    std::string whole = std::to_string(std::abs(cents) / 100);
    for (std::size_t at = whole.size(); at > 3;)
        whole.insert(at -= 3, ",");
    return (cents < 0 ? "-" : "") + whole + TwoDecimals(std::abs(cents));
}

std::string Dollars(Amount amount)
{
    const std::int64_t cents = Cents(amount);
    return (cents < 0 ? "-$" : "$") + std::to_string(std::abs(cents) / 100) +
           TwoDecimals(std::abs(cents));
}

std::string RunNames::Of(const std::string& fitid)
{
    if (fitid.empty() || fitid[0] == 'F' || fitid.rfind("CVLB", 0) == 0)
        return fitid;
    return "run " + std::to_string(known_.try_emplace(fitid, known_.size() + 1).first->second);
}

bool Before(const std::string& a, const std::string& b)
{
    const std::string x = Lower(a);
    const std::string y = Lower(b);
    return x != y ? x < y : a < b;
}

std::string First(const std::string& text, std::size_t characters)
{
    std::size_t at = 0;
    for (; at < text.size(); ++at)
        if ((text[at] & 0xC0) != 0x80 && characters-- == 0)
            break;
    return text.substr(0, at);
}

bool BeforeInList(const Account& a, const Account& b)
{
    return a.type != b.type ? Before(a.type, b.type) : Before(a.description, b.description);
}

int ViewOfType(const std::string& type)
{
    if (type == "Investment")
        return 5;
    return type == "Loan" ? 6 : 4;
}

BudgetMonth BudgetMonth::Previous() const
{
    return period == 1 ? BudgetMonth{year - 1, 12} : BudgetMonth{year, period - 1};
}

BudgetMonth BudgetMonth::Next() const
{
    return period == 12 ? BudgetMonth{year + 1, 1} : BudgetMonth{year, period + 1};
}

Books Books::AtStart()
{
    Books books;
    books.Add(Account{0, "1001", "Checking", "Bank", 1000 * kUnit});
    books.Add(Account{0, "C-1", "Purse", "Cash"});
    books.Add(Account{0, "4711", "Visa", "Credit Card"});
    books.Add(Account{0, "D-1", "Depot", "Investment"});
    books.Add(Account{0, "L-1", "House", "Loan"});
    books.Add(Transaction{
        0, 1, 0, "1001", "2006-03-05", "Rent", -500 * kUnit, "", "Home", "", {2006, 3}, ""});
    books.Add(Transaction{
        0, 2, 0, "1001", "2006-03-09", "Grocer", -45 * kUnit, "", "Food", "", {2006, 3}, ""});
    books.Add(BudgetLine{0, {2006, 2}, "Living", "Food", 300 * kUnit});
    books.Add(BudgetLine{0, {2006, 3}, "Living", "Food", 250 * kUnit});
    books.Add(BudgetLine{0, {2006, 3}, "(none)", "Home", 0});
    books.Add(
        Holding{0, "ACME", "Acme", "2005-01-31", "10", 5 * kUnit, 6 * kUnit, 60 * kUnit, "D-1"});
    books.Add(Loan{0, "Mortgage", 9000 * kUnit, 400 * kUnit, "4.5", "L-1"});
    books.UpdateBalances();
    return books;
}

std::vector<std::string> Books::StartStatements()
{
    const Books books = AtStart();
    std::vector<std::string> all;
    for (const Account& a : books.accounts)
        all.push_back(
            "INSERT INTO Account (AccountID, Description, Type, OpeningBalance, "
            "CurrentBalance) VALUES (" +
            Quoted(a.id) + ", " + Quoted(a.description) + ", " + Quoted(a.type) + ", " +
            Plain(a.opening) + ", " + Plain(a.current) + ")");
    for (const Transaction& t : books.transactions)
        all.push_back(
            "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "CheckID, Category, PayeeName, Year, Period, FITID) VALUES (" +
            std::to_string(t.sequence) + ", 0, " + Quoted(t.account) + ", #" + t.date + "#, " +
            Quoted(t.description) + ", " + Plain(t.amount) + ", '', " + Quoted(t.category) +
            ", '', " + std::to_string(t.month.year) + ", " + std::to_string(t.month.period) +
            ", '')");
    for (const BudgetLine& l : books.lines)
        all.push_back(
            "INSERT INTO Budget (Year, Period, CategoryGroup, Category, Amount) VALUES (" +
            std::to_string(l.month.year) + ", " + std::to_string(l.month.period) + ", " +
            Quoted(l.group) + ", " + Quoted(l.category) + ", " + Plain(l.amount) + ")");
    for (const Holding& h : books.holdings)
        all.push_back(
            "INSERT INTO Investment (StockSymbol, StockName, PurchaseDate, Quantity, "
            "PurchasePrice, LastPrice, Total, AccountID) VALUES (" +
            Quoted(h.symbol) + ", " + Quoted(h.name) + ", #" + h.date + "#, " + h.quantity + ", " +
            Plain(h.purchase) + ", " + Plain(h.last) + ", " + Plain(h.total) + ", " +
            Quoted(h.account) + ")");
    for (const Loan& l : books.loans)
        all.push_back(
            "INSERT INTO Loan (Description, OriginalAmount, PaidAmount, InterestRate, "
            "AccountID) VALUES (" +
            Quoted(l.description) + ", " + Plain(l.original) + ", " + Plain(l.paid) + ", " +
            l.rate + ", " + Quoted(l.account) + ")");
    return all;
}

Account& Books::Add(Account account)
{
    account.sequence = ++lastAccount;
    return accounts.emplace_back(std::move(account));
}

Transaction& Books::Add(Transaction transaction)
{
    transaction.row = ++lastRow;
    return transactions.emplace_back(std::move(transaction));
}

BudgetLine& Books::Add(BudgetLine line)
{
    line.sequence = ++lastLine;
    return lines.emplace_back(std::move(line));
}

Holding& Books::Add(Holding holding)
{
    holding.sequence = ++lastHolding;
    return holdings.emplace_back(std::move(holding));
}

Loan& Books::Add(Loan loan)
{
    loan.sequence = ++lastLoan;
    return loans.emplace_back(std::move(loan));
}

long Books::NextSequence() const
{
    long largest = 0;
    for (const Transaction& transaction : transactions)
        largest = std::max(largest, transaction.sequence);
    return largest + 1;
}

bool Books::HasAccount(const std::string& id) const
{
    return std::any_of(accounts.begin(), accounts.end(),
                       [&id](const Account& account) { return account.id == id; });
}

const Account* Books::FirstWithDescription(const std::string& description) const
{
    for (const Account& account : accounts)
        if (account.description == description)
            return &account;
    return nullptr;
}

void Books::Renumber(Account& account, const std::string& id)
{
    const std::string old = account.id;
    account.id = id;
    if (old == id || HasAccount(old) || flaw == Flaw::RowsStayWithOldNumber)
        return;
    const auto follow = [&](auto& rows) {
        for (auto& row : rows)
            if (row.account == old)
                row.account = id;
    };
    follow(transactions);
    follow(holdings);
    follow(loans);
}

void Books::EnsureLine(const std::string& category, BudgetMonth month, const std::string& group,
                       Amount amount)
{
    for (const BudgetLine& line : lines)
        if (line.month == month && line.category == category)
            return;
    Add(BudgetLine{0, month, group, category, amount});
}

void Books::CopyBudget(BudgetMonth from, BudgetMonth to)
{
    std::vector<BudgetLine> source;
    for (const BudgetLine& line : lines)
        if (line.month == from)
            source.push_back(line);
    if (source.empty())
        return;
    const auto wanted = [&source](const std::string& category) {
        return category == "(none)" ||
               std::any_of(source.begin(), source.end(),
                           [&](const BudgetLine& line) { return line.category == category; });
    };
    for (const BudgetLine& line : lines)
        if (line.month == to && line.category.find('\'') != std::string::npos &&
            !wanted(line.category))
            throw Failure("a lone quote in the statement");
    for (const BudgetLine& copied : source) {
        EnsureLine(copied.category, to, copied.group, copied.amount);
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const BudgetLine& line) {
            return line.month == to && line.category == copied.category;
        });
        found->group = copied.group;
        found->amount = copied.amount;
    }
    EnsureLine("(none)", to, "(none)", 0);
    for (std::size_t at = 0; at < lines.size();) {
        const BudgetLine line = lines[at];
        if (line.month != to || wanted(line.category)) {
            ++at;
            continue;
        }
        DropCategory(line.category, to);
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

void Books::DropCategory(const std::string& category, BudgetMonth month)
{
    for (Transaction& transaction : transactions)
        if (transaction.category == category && transaction.month == month)
            transaction.category = "(none)";
}

void Books::UpdateBalance(int view, const std::string& id)
{
    Amount sum = 0;
    if (view == 4)
        for (const Transaction& row : transactions)
            sum += row.account == id ? row.amount : 0;
    else if (view == 5)
        for (const Holding& row : holdings)
            sum += row.account == id ? row.total : 0;
    else if (view == 6)
        for (const Loan& row : loans)
            sum += row.account == id ? row.original - row.paid : 0;
    else
        return;
    for (Account& account : accounts)
        if (account.id == id) {
            account.current = sum;
            return;
        }
}

void Books::UpdateBalances()
{
    for (std::size_t at = 0; at < accounts.size(); ++at)
        UpdateBalance(ViewOfType(accounts[at].type), accounts[at].id);
}

int Books::Counts(const std::string& account) const
{
    return static_cast<int>(
        std::count_if(accounts.begin(), accounts.end(),
                      [&account](const Account& one) { return one.include && one.id == account; }));
}

Amount Books::Spent(BudgetMonth month, const std::string* category) const
{
    Amount sum = 0;
    for (const Transaction& row : transactions)
        if (row.month == month && (!category || row.category == *category))
            sum += row.amount * Counts(row.account);
    return sum;
}

Amount Books::SpentOnGroup(BudgetMonth month, const std::string& group) const
{
    Amount sum = 0;
    for (const BudgetLine& line : lines)
        if (line.month == month && line.group == group)
            sum += Spent(month, &line.category);
    return sum;
}

Amount Books::Budgeted(BudgetMonth month, const std::string* group) const
{
    Amount sum = 0;
    for (const BudgetLine& line : lines)
        if (line.month == month && (!group || line.group == *group))
            sum += line.amount;
    return sum;
}

std::vector<std::string> Tables::Lines() const
{
    const auto number = [](long value) { return "|" + std::to_string(value); };
    RunNames names;
    std::vector<std::string> all;
    for (const Account& a : accounts)
        all.push_back("Account" + number(a.sequence) + "|" + a.id + "|" + a.description + "|" +
                      a.type + "|" + Plain(a.opening) + "|" + Plain(a.current) + "|" +
                      (a.include ? "True" : "False"));
    for (const Transaction& t : transactions)
        all.push_back("Trans" + number(t.sequence) + number(t.piece) + "|" + t.account + "|" +
                      t.date + "|" + t.description + "|" + Plain(t.amount) + "|" + t.check + "|" +
                      t.category + "|" + t.notes + number(t.month.year) + number(t.month.period) +
                      "|" + names.Of(t.fitid));
    for (const BudgetLine& l : lines)
        all.push_back("Budget" + number(l.sequence) + number(l.month.year) +
                      number(l.month.period) + "|" + l.group + "|" + l.category + "|" +
                      Plain(l.amount));
    for (const Holding& h : holdings)
        all.push_back("Investment" + number(h.sequence) + "|" + h.symbol + "|" + h.name + "|" +
                      h.date + "|" + h.quantity + "|" + Plain(h.purchase) + "|" + Plain(h.last) +
                      "|" + Plain(h.total) + "|" + h.account);
    for (const Loan& l : loans)
        all.push_back("Loan" + number(l.sequence) + "|" + l.description + "|" + Plain(l.original) +
                      "|" + Plain(l.paid) + "|" + l.rate + "|" + l.account);
    return all;
}

}  // namespace clb::model
