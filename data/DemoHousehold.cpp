#include "data/DemoHousehold.h"

#include <array>
#include <random>

#include "data/AccountKind.h"
#include "data/Balances.h"
#include "data/EmptyDatabase.h"
#include "data/NoCategory.h"
#include "data/clsDatabase.h"
#include "files/Folders.h"
#include "files/ReadFile.h"
#include "files/TemporaryFolder.h"
#include "files/WholeFile.h"

namespace clb {
namespace {

/// The data store needs a view and a row. The household is made without either.
class NothingShown : public IShownState, public ICurrentRow {
public:
    [[nodiscard]] std::int32_t View() const override { return 0; }
    [[nodiscard]] std::int32_t Period() const override { return 0; }
    [[nodiscard]] std::int32_t Year() const override { return 0; }
    [[nodiscard]] const std::string& AccountType() const override { return none_; }
    [[nodiscard]] const std::string& AccountID() const override { return none_; }
    Value ColumnValue(std::int32_t) override { return Null{}; }
    void ColumnValue(std::int32_t, const Value&) override {}

private:
    std::string none_;
};

struct DemoAccount {
    const char* id;
    const char* description;
    const char* type;
    std::int32_t opening;
};

constexpr const char* kChecking = "20-4471-03";
constexpr const char* kSavings = "20-4471-11";
constexpr const char* kWallet = "CASH";
constexpr const char* kCard = "4929-0013";
constexpr const char* kFund = "INV-7781";
constexpr const char* kCarLoan = "LN-2210";

constexpr std::array<DemoAccount, 6> kAccounts{{
    {kChecking, "Everyday Checking", account_type::kBank, 2150},
    {kSavings, "Rainy Day Savings", account_type::kBank, 6400},
    {kWallet, "Wallet", account_type::kCash, 80},
    {kCard, "Harbour Visa", account_type::kCreditCard, -310},
    {kFund, "Retirement Fund", account_type::kInvestment, 0},
    {kCarLoan, "Car Loan", account_type::kLoan, 0},
}};

struct DemoLine {
    const char* group;
    const char* category;
    std::int32_t budgeted;
};

constexpr std::array<DemoLine, 12> kBudget{{
    {"Income", "Salary", 3850},
    {"Income", "Interest", 12},
    {"Home", "Rent", -1180},
    {"Home", "Electricity", -75},
    {"Home", "Internet & Phone", -62},
    {"Living", "Groceries", -480},
    {"Living", "Eating Out", -160},
    {"Living", "Clothing", -90},
    {"Getting Around", "Fuel", -120},
    {"Getting Around", "Car Payment", -245},
    {"Fun", "Books & Music", -45},
    {"Fun", "Travel", -150},
}};

/// A transaction that comes every month.
struct DemoHabit {
    const char* account;
    const char* payee;
    const char* category;
    std::int32_t day;
    std::int32_t cents;   ///< typical amount; negative is money out
    std::int32_t spread;  ///< cents more or less
};

constexpr std::array<DemoHabit, 18> kHabits{{
    {kChecking, "Northwind Payroll", "Salary", 1, 385000, 0},
    {kChecking, "Maple Court Apartments", "Rent", 3, -118000, 0},
    {kChecking, "City Power & Light", "Electricity", 12, -7400, 1800},
    {kChecking, "Fibrelink", "Internet & Phone", 15, -6195, 0},
    {kChecking, "First Auto Finance", "Car Payment", 18, -24500, 0},
    {kSavings, "Interest earned", "Interest", 28, 1130, 120},
    {kCard, "Green Basket Market", "Groceries", 4, -9640, 2400},
    {kCard, "Green Basket Market", "Groceries", 11, -11280, 2900},
    {kCard, "Corner Deli", "Groceries", 19, -4310, 1500},
    {kCard, "Green Basket Market", "Groceries", 25, -12450, 3100},
    {kCard, "Trattoria Luna", "Eating Out", 9, -5820, 1400},
    {kCard, "Noodle House", "Eating Out", 22, -3370, 900},
    {kCard, "Shoreline Fuel", "Fuel", 7, -4890, 700},
    {kCard, "Shoreline Fuel", "Fuel", 21, -5120, 800},
    {kCard, "Hillside Books", "Books & Music", 14, -3190, 1200},
    {kWallet, "Farmers' market", "Groceries", 16, -2850, 900},
    {kWallet, "Café am Eck", "Eating Out", 27, -1240, 400},
    {kCard, "Thread & Needle", "Clothing", 20, -8460, 3500},
}};

class Household {
public:
    Household(const std::string& folder, const Date& today)
        : today_(today), data_(folder, nothing_, nothing_)
    {
    }

    void Make()
    {
        AddAccounts();
        AddHoldings();
        AddLoans();
        Month month{today_.Year() - 2, today_.Month()};
        for (int i = 0; i <= 24; ++i, month = month.Next())
            AddMonth(month);
        UpdateBalances(data_);
        data_.Database().Settle();
    }

private:
    void AddAccounts()
    {
        Recordset accounts;
        data_.Fill(accounts, "SELECT AccountID, Description, Type, OpeningBalance FROM Account",
                   false);
        for (const DemoAccount& account : kAccounts) {
            accounts.AddNew();
            accounts.Set("AccountID", std::string(account.id));
            accounts.Set("Description", std::string(account.description));
            accounts.Set("Type", std::string(account.type));
            accounts.Set("OpeningBalance", Money::FromUnits(account.opening));
            accounts.Update();
        }
    }

    void AddHoldings()
    {
        struct Holding {
            const char* symbol;
            const char* name;
            double quantity;
            std::int32_t bought;
            std::int32_t last;
        };
        constexpr std::array<Holding, 3> kHoldings{
            {{"NWND", "Northwind Traders", 40, 2210, 3145},
             {"HRBR", "Harbour Shipping", 120, 880, 1012},
             {"MPLE", "Maple Index Fund", 65.5, 5120, 6388}}};
        Recordset rows;
        data_.Fill(rows, "SELECT * FROM Investment", false);
        std::int32_t age = 700;
        for (const Holding& holding : kHoldings) {
            rows.AddNew();
            rows.Set("StockSymbol", std::string(holding.symbol));
            rows.Set("StockName", std::string(holding.name));
            rows.Set("PurchaseDate", Date::FromDays(today_.Days() - age));
            rows.Set("Quantity", holding.quantity);
            rows.Set("PurchasePrice", Cents(holding.bought));
            rows.Set("LastPrice", Cents(holding.last));
            rows.Set("Total", Money::FromDouble(holding.quantity * holding.last / 100.0));
            rows.Set("AccountID", std::string(kFund));
            rows.Update();
            age -= 210;
        }
    }

    void AddLoans()
    {
        Recordset rows;
        data_.Fill(rows, "SELECT * FROM Loan", false);
        rows.AddNew();
        rows.Set("Description", std::string("Station wagon"));
        rows.Set("OriginalAmount", Money::FromUnits(14500));
        rows.Set("PaidAmount", Money::FromUnits(6125));
        rows.Set("InterestRate", 4.75);
        rows.Set("AccountID", std::string(kCarLoan));
        rows.Update();
    }

    void AddMonth(Month month)
    {
        for (const DemoLine& line : kBudget)
            data_.CreateBudgetEntry(line.category, month.year, month.period, line.group,
                                    Money::FromUnits(line.budgeted));
        for (const DemoHabit& habit : kHabits)
            AddTransaction(month, habit.day, habit.account, habit.payee, habit.category,
                           Cents(habit.cents + Spread(habit.spread)));
        // The card is paid from the checking account, and some of the rest is put aside.
        AddTransaction(month, 26, kChecking, "Harbour Visa payment", kNoCategory, Cents(-66000));
        AddTransaction(month, 26, kCard, "Payment received, thank you", kNoCategory, Cents(66000));
        AddTransaction(month, 29, kChecking, "To savings", kNoCategory, Cents(-45000));
        AddTransaction(month, 29, kSavings, "From checking", kNoCategory, Cents(45000));
        AddTransaction(month, 5, kChecking, "Cash withdrawal", kNoCategory, Cents(-6000));
        AddTransaction(month, 5, kWallet, "From checking", kNoCategory, Cents(6000));
        if (month.period == 7)
            AddTransaction(month, 8, kCard, "Seaside Hotel", "Travel", Cents(-64200));
    }

    void AddTransaction(Month month, std::int32_t day, const std::string& account,
                        const std::string& payee, const std::string& category, Money amount)
    {
        const auto date =
            Date::Of(month.year, month.period, month.period == 2 && day > 28 ? 28 : day);
        if (!date || *date > today_)
            return;
        data_.CreateBudgetEntry(category, month.year, month.period, kNoCategory, Money());
        Recordset rows;
        data_.Fill(rows, "SELECT * FROM Trans WHERE false", false);
        rows.AddNew();
        rows.Set("Sequence", data_.GetNextSequence());
        rows.Set("AccountID", account);
        rows.Set("PostDate", *date);
        rows.Set("Description", payee);
        rows.Set("Amount", amount);
        rows.Set("CheckID", category == "Rent" ? std::to_string(nextCheck_++) : std::string());
        rows.Set("Category", category);
        rows.Set("PayeeName", std::string());
        rows.Set("Year", month.year);
        rows.Set("Period", month.period);
        rows.Set("FITID", std::string());
        rows.Update();
    }

    static Money Cents(std::int32_t cents) { return Money::FromScaled(std::int64_t{cents} * 100); }

    std::int32_t Spread(std::int32_t cents)
    {
        if (cents == 0)
            return 0;
        // Not a distribution of the standard library: libraries implement those differently.
        const auto range = static_cast<std::uint32_t>(2 * cents + 1);
        return static_cast<std::int32_t>(random_() % range) - cents;
    }

    Date today_;
    NothingShown nothing_;
    clsDatabase data_;
    std::mt19937 random_{20060305};
    std::int32_t nextCheck_ = 1001;
};

}  // namespace

void MakeDemoHousehold(const std::string& folder, const Date& today)
{
    Household(folder, today).Make();
}

std::string DemoDatabase(const Date& today)
{
    const TemporaryFolder place;
    const std::string database = place.Path("db/clb.mdb");
    MakePrivateFolder(place.Path("db"));
    CreateFile(database, EmptyDatabase());
    MakeDemoHousehold(place.Path(), today);
    return ReadFile(database);
}

}  // namespace clb
