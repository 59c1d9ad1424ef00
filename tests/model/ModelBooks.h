// The tables of the model, independent of the program's code.
#pragma once
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace clb::model {

// What the books hold, in plain structs and without any of the program's own code. The program is
// compared with this.

/// Money in 1/10000 units.
using Amount = std::int64_t;
/// Reads "-1234.5" and the like: no grouping, at most four decimals.
Amount ParseAmount(const std::string& plain);
std::string Plain(Amount amount);    ///< "-1234.5"
std::string Grouped(Amount amount);  ///< "-1,234.50", half away from zero
std::string Dollars(Amount amount);  ///< "-$1234.50", half away from zero

/// Whether a comes before b alphabetically, ignoring case, or by exact text if they are equal then.
/// Plain ASCII only.
bool Before(const std::string& a, const std::string& b);
/// Returns the first characters of a UTF-8 text.
std::string First(const std::string& text, std::size_t characters);

/// Replaces the identifiers of record imports by names, in order of their first appearance. Each
/// such import marks its rows with a new text. Identifiers of statements begin with F here and
/// stay.
class RunNames {
public:
    std::string Of(const std::string& fitid);

private:
    std::map<std::string, std::size_t> known_;
};

/// A command that ends with the report of a runtime error.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Deliberate mistakes in the model, to check that they are noticed.
enum class Flaw {
    None,
    ForgetsBudgetLine,
    RowsStayWithOldNumber,
    SplitKeepsWholeAmount,
    OnlyShownLoans,
    UndoKeepsBudget
};

struct BudgetMonth {
    int year = 0;
    int period = 0;
    [[nodiscard]] BudgetMonth Previous() const;
    [[nodiscard]] BudgetMonth Next() const;
    bool operator==(const BudgetMonth&) const = default;
};

/// What the window shows, and where its user is.
struct Standing {
    int node = 1;  ///< of the tree, from 1
    int view = 1;
    BudgetMonth month;
    std::string account;  ///< the one that the window counts as chosen, and its type
    std::string type;
    std::vector<bool> folded;  ///< the group headings of the grid
    std::size_t row = 1;
    int column = 1;
    bool inGrid = false;
};

// In the rows, dates are ISO texts, and numbers with fractions are plain decimal texts. Empty means
// null.

struct Account {
    long sequence = 0;
    std::string id, description, type;
    Amount opening = 0, current = 0;
    bool include = true;
    bool operator==(const Account&) const = default;
};

struct Transaction {
    long row = 0;  ///< its own for good, unlike the sequence, which pieces share
    long sequence = 0, piece = 0;
    std::string account, date, description;
    Amount amount = 0;
    std::string check, category, notes;
    BudgetMonth month;
    std::string fitid;
    bool operator==(const Transaction&) const = default;
};

struct BudgetLine {
    long sequence = 0;
    BudgetMonth month;
    std::string group, category;
    Amount amount = 0;
    bool operator==(const BudgetLine&) const = default;
};

struct Holding {
    long sequence = 0;
    std::string symbol, name, date, quantity;
    Amount purchase = 0, last = 0, total = 0;
    std::string account;
    bool operator==(const Holding&) const = default;
};

struct Loan {
    long sequence = 0;
    std::string description;
    Amount original = 0, paid = 0;
    std::string rate, account;
    bool operator==(const Loan&) const = default;
};

/// The order of accounts in lists: by type, then by description.
bool BeforeInList(const Account& a, const Account& b);
/// The view that shows an account of the type: 4, 5 or 6.
int ViewOfType(const std::string& type);

/// The tables, with rows in the order in which they were added.
struct Tables {
    std::vector<Account> accounts;
    std::vector<Transaction> transactions;
    std::vector<BudgetLine> lines;
    std::vector<Holding> holdings;
    std::vector<Loan> loans;

    /// Every row of every table as a line.
    [[nodiscard]] std::vector<std::string> Lines() const;
    bool operator==(const Tables&) const = default;
};

/// The tables, the last numbers given to their rows, and operations on whole tables.
struct Books : Tables {
    long lastAccount = 0, lastRow = 0, lastLine = 0, lastHolding = 0, lastLoan = 0;
    int runs = 0;  ///< imports of record files so far
    Flaw flaw = Flaw::None;

    /// The small books that every run begins with.
    static Books AtStart();
    /// The same books as SQL.
    static std::vector<std::string> StartStatements();

    Account& Add(Account account);
    Transaction& Add(Transaction transaction);
    BudgetLine& Add(BudgetLine line);
    Holding& Add(Holding holding);
    Loan& Add(Loan loan);

    [[nodiscard]] long NextSequence() const;
    [[nodiscard]] bool HasAccount(const std::string& id) const;
    [[nodiscard]] const Account* FirstWithDescription(const std::string& description) const;
    /// The account's rows get the new number too, unless another account still has the old one.
    void Renumber(Account& account, const std::string& id);

    void EnsureLine(const std::string& category, BudgetMonth month, const std::string& group,
                    Amount amount);
    void CopyBudget(BudgetMonth from, BudgetMonth to);
    void DropCategory(const std::string& category, BudgetMonth month);

    /// Stores the account's balance as a view computes it.
    void UpdateBalance(int view, const std::string& id);
    void UpdateBalances();

    /// How often an account's transactions count: once for each account with that number.
    [[nodiscard]] int Counts(const std::string& account) const;
    /// What the accounts that count spent in a month: on one category, or on all.
    [[nodiscard]] Amount Spent(BudgetMonth month, const std::string* category) const;
    [[nodiscard]] Amount SpentOnGroup(BudgetMonth month, const std::string& group) const;
    [[nodiscard]] Amount Budgeted(BudgetMonth month, const std::string* group) const;
};

}  // namespace clb::model
