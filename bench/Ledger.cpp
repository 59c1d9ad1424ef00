#include "bench/Ledger.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <vector>

#include "bench/Bare.h"
#include "bench/WorkFolder.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

constexpr std::int32_t kRowsAMonth = 208;
constexpr std::int32_t kDaysUsed = 28;
constexpr std::int32_t kPurseMonths = 24;
constexpr std::int32_t kOutOfBudget = 5;  ///< one in this many accounts
constexpr std::array<std::string_view, 20> kGroups = {
    "Living", "House",   "Garden", "Car",       "Travel",  "Health", "Children",
    "School", "Clothes", "Sport",  "Hobbies",   "Books",   "Music",  "Pets",
    "Gifts",  "Church",  "Work",   "Insurance", "Savings", "Taxes"};
constexpr std::array<std::string_view, 10> kKinds = {"basics", "extras",  "repairs", "fees",
                                                     "tools",  "outings", "events",  "services",
                                                     "rent",   "other"};
constexpr std::array<std::string_view, 6> kShops = {"Corner Grocery",    "Riverside Pharmacy",
                                                    "City Water Works",  "Harbour Books",
                                                    "Green Lane Garage", "Station Cafe"};

/// Counted from January 1990.
Month LedgerMonth(std::int32_t number)
{
    return {1990 + number / 12, 1 + number % 12};
}

/// The indices of Trans. They are dropped while rows are added and made again at the end, which is
/// much faster.
class TransIndices {
public:
    explicit TransIndices(BareDatabase& database) : database_(database)
    {
        std::vector<std::string> names;
        BareStatement list = database_.Prepare(
            "SELECT name, sql FROM sqlite_master WHERE type = 'index' AND tbl_name = 'Trans'");
        while (list.Step()) {
            names.emplace_back(list.Text(0));
            statements_.emplace_back(list.Text(1));
        }
        for (const std::string& name : names)
            database_.Run("DROP INDEX " + name);
    }
    void MakeAnew()
    {
        for (const std::string& statement : statements_)
            database_.Run(statement);
    }

private:
    BareDatabase& database_;
    std::vector<std::string> statements_;
};

class LedgerFiller {
public:
    LedgerFiller(BareDatabase& database, LedgerSize size) : database_(database), size_(size)
    {
        for (std::int32_t account = 0; account < size_.accounts; ++account)
            accounts_.push_back(LedgerAccount(account));
        accounts_.push_back(LedgerPurse());
        for (const std::string_view group : kGroups)
            for (const std::string_view kind : kKinds)
                categories_.push_back(std::string(group) + ' ' + std::string(kind));
        categories_.front() = "(none)";
    }

    void Fill()
    {
        for (std::size_t account = 0; account < accounts_.size(); ++account)
            AddAccount(accounts_[account], account % kOutOfBudget != kOutOfBudget - 1);
        for (std::int32_t number = 0; number < size_.months; ++number) {
            if (number == kPurseMonths)
                accounts_.pop_back();
            AddMonth(LedgerMonth(number), kRowsAMonth + (number % 3 == 0 ? 1 : 0));
        }
    }

    void SumUp()
    {
        database_.Run(
            "UPDATE Account SET OpeningBalance = 5000000, CurrentBalance = (SELECT "
            "SUM(Amount) FROM Trans WHERE Trans.AccountID = Account.AccountID)");
    }

private:
    void AddAccount(const std::string& account, bool inBudget)
    {
        addAccount_.Bind(1, account);
        addAccount_.Bind(2, std::int64_t{inBudget ? 1 : 0});
        addAccount_.Step();
    }

    void AddMonth(Month month, std::int32_t rows)
    {
        for (std::size_t category = 0; category < categories_.size(); ++category)
            AddBudgetLine(month, categories_[category], kGroups[category / kKinds.size()]);
        for (std::int32_t row = 0; row < rows; ++row)
            for (const std::string& account : accounts_)
                AddTransaction(account, month, 1 + row * kDaysUsed / rows);
    }

    void AddBudgetLine(Month month, std::string_view category, std::string_view group)
    {
        addLine_.Bind(1, std::int64_t{month.year});
        addLine_.Bind(2, std::int64_t{month.period});
        addLine_.Bind(3, category);
        addLine_.Bind(4, group);
        addLine_.Step();
    }

    void AddTransaction(const std::string& account, Month month, std::int32_t day)
    {
        std::array<char, 48> date{};
        const int length = std::snprintf(date.data(), date.size(), "%04d-%02d-%02d", month.year,
                                         month.period, day);
        const std::string identifier = "LN" + std::to_string(10'000'000 + sequence_);
        const auto chance = static_cast<std::uint32_t>(random_());
        addRow_.Bind(1, ++sequence_);
        addRow_.Bind(2, account);
        addRow_.Bind(3, std::string_view(date.data(), static_cast<std::size_t>(length)));
        addRow_.Bind(4, kShops[chance % kShops.size()]);
        addRow_.Bind(5, std::int64_t{chance % 30'000} * -100);
        addRow_.Bind(6, categories_[chance / 16 % categories_.size()]);
        addRow_.Bind(7, std::int64_t{month.year});
        addRow_.Bind(8, std::int64_t{month.period});
        addRow_.Bind(9, identifier);
        addRow_.Step();
    }

    BareDatabase& database_;
    LedgerSize size_;
    std::vector<std::string> accounts_;  // the purse is last while it is used
    std::vector<std::string> categories_;
    std::int64_t sequence_ = 0;
    std::mt19937 random_{19990117};
    BareStatement addAccount_ = database_.Prepare(
        "INSERT INTO Account (AccountID, Description, Type, BudgetInclude) VALUES (?1, 'Account ' "
        "|| ?1, 'Bank', ?2)");
    BareStatement addLine_ = database_.Prepare(
        "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (?, ?, ?, ?, "
        "1000000)");
    BareStatement addRow_ = database_.Prepare(
        "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, CheckID, Category, "
        "PayeeName, Year, Period, FITID) VALUES (?1, ?2, ?3, ?4, ?5, '', ?6, 'card purchase', ?7, "
        "?8, ?9)");
};

void FillLedger(const std::string& databasePath, LedgerSize size)
{
    BareDatabase database(databasePath);
    database.Run("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
    database.Run("BEGIN IMMEDIATE");
    TransIndices indices(database);
    LedgerFiller filler(database, size);
    filler.Fill();
    indices.MakeAnew();
    filler.SumUp();
    database.Run("COMMIT");
}

}  // namespace

std::string LedgerAccount(std::int32_t account)
{
    return std::to_string(4417'0000 + account);
}

std::string LedgerPurse()
{
    return "PURSE";
}

Month LateLedgerMonth(LedgerSize size, std::int32_t turn)
{
    const std::int32_t late = std::min(size.months, 12);
    return LedgerMonth(size.months - late + turn % late);
}

Month LastPurseMonth(LedgerSize size)
{
    return LedgerMonth(std::min(size.months, kPurseMonths) - 1);
}

std::string DeliverLedger(const WorkFolder& work, LedgerSize size)
{
    const std::string name =
        "books-" + std::to_string(size.accounts) + '-' + std::to_string(size.months);
    if (HoldsDatabase(work.Path(name)))
        return work.Path(name);
    std::string folder = work.Deliver(name);
    FillLedger(DatabasePath(folder), size);
    work.Flush();
    return folder;
}

}  // namespace clb
