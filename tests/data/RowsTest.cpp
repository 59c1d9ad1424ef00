// Reading the rows of each view, checking and completing a row, and what follows a deletion.

#include "base/RuntimeError.h"
#include "data/ViewColumns.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

class RowsTest : public StoreTest {
protected:
    std::string FieldNames()
    {
        std::string names;
        for (const Field& field : Store().GetRows().Fields())
            names += field.name + " ";
        return names;
    }
    /// The refusal of the current row as "column: message", or "valid".
    std::string Check()
    {
        std::int32_t column = 0;
        std::string message;
        return Store().ValidRow(column, message) ? "valid"
                                                 : std::to_string(column) + ": " + message;
    }
};

TEST_F(RowsTest, EveryViewHasItsColumnsInOrder)
{
    const std::vector<std::string> names = {
        "Description Type AccountID OpeningBalance TotBalance Sequence ",
        "Category Amount Sequence Year Period CategoryGroup ",
        "Description AccountID OpeningBalance TotBalance Sequence Type ",
        std::string("PostDate Description Amount CheckID Category Notes AccountID Year Period ") +
            "FITID Sequence SubSequence ",
        std::string("StockSymbol StockName PurchaseDate Quantity PurchasePrice LastPrice ") +
            "Total AccountID Sequence ",
        "Description OriginalAmount PaidAmount InterestRate AccountID Sequence "};
    for (shown_.view = 1; shown_.view <= 6; ++shown_.view)
        EXPECT_EQ(FieldNames(), names[static_cast<std::size_t>(shown_.view - 1)]);
}

TEST_F(RowsTest, WithoutAViewTheEngineReportsAnError)
{
    shown_.view = 0;

    EXPECT_THROW(Store().GetRows(), EngineError);
}

TEST_F(RowsTest, NetWorthListsAccountsByTypeAndDescriptionWithTheirBalance)
{
    AddAccount("wallet", "Cash", "10", "-2.5");
    AddAccount("Visa", "Credit Card");
    AddAccount("checking", "Bank", "100", "25");
    shown_.view = vwNetWorth;

    EXPECT_EQ(
        Lines(Store().GetRows()),
        (std::vector<std::string>{"checking|Bank|checking|100|125|3", "wallet|Cash|wallet|10|7.5|1",
                                  "Visa|Credit Card|Visa|0|0|2"}));
}

TEST_F(RowsTest, TheRegisterShowsTheBookedMonthNewestFirst)
{
    AddAccount("O'Neil", "Bank");
    Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
        "VALUES (1, 0, 'O''Neil', #2006-03-05#, 1, 2006, 3)");
    Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
        "VALUES (2, 1, 'O''Neil', #2006-03-09#, 2, 2006, 3)");
    Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
        "VALUES (2, 0, 'O''Neil', #2006-03-09#, 3, 2006, 3)");
    Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
        "VALUES (3, 0, 'O''Neil', #2006-03-09#, 4, 2006, 4)");
    shown_.view = vwAccount;
    shown_.account = "O'Neil";

    Recordset& rows = Store().GetRows();

    std::vector<std::string> amounts;
    for (; !rows.AtEnd(); rows.MoveNext())
        amounts.push_back(ToText(rows.Get("Amount")));
    EXPECT_EQ(amounts, (std::vector<std::string>{"3", "2", "1"}));
}

TEST_F(RowsTest, TheSameResultSetServesEveryView)
{
    shown_.view = vwNetWorth;
    Recordset& first = Store().GetRows();
    shown_.view = vwLoan;
    Recordset& second = Store().GetRows();

    EXPECT_EQ(&first, &second);
    EXPECT_EQ(second.Fields().front().name, "Description");
    EXPECT_EQ(second.Fields().size(), 6U);
}

TEST_F(RowsTest, NextNumberIsOneMoreThanTheLargest)
{
    EXPECT_EQ(Store().GetNextSequence(), 1);
    AddTransaction(7, "10", "1", 2006, 3);
    EXPECT_EQ(Store().GetNextSequence(), 8);
    Execute("DELETE FROM Trans WHERE Sequence = 7");
    EXPECT_EQ(Store().GetNextSequence(), 1);
    AddTransaction(2147483647, "10", "1", 2006, 3);
    try {
        Store().GetNextSequence();
        ADD_FAILURE() << "there is a number";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), errors::Overflow);
        EXPECT_STREQ(error.what(),
                     "No number is left for a new transaction: one has the largest already.");
    }
}

TEST_F(RowsTest, ARowOfNoViewIsValidAsItIs)
{
    for (shown_.view = 0; shown_.view <= 99; shown_.view += 99)
        EXPECT_EQ(Check(), "valid") << shown_.view;

    EXPECT_TRUE(row_.cells.empty());
}

TEST_F(RowsTest, QuotesAreDoubled)
{
    EXPECT_EQ(clsDatabase::ToSqlString("O'Neil's"), "O''Neil''s");
    EXPECT_EQ(clsDatabase::ToSqlString(""), "");
}

TEST_F(RowsTest, TextsAreTrimmedAroundTheCut)
{
    EXPECT_EQ(clsDatabase::TruncateString("  Groceries and more  ", 9), "Groceries");
    EXPECT_EQ(clsDatabase::TruncateString("  Groceries and more  ", 10), "Groceries");
    EXPECT_EQ(clsDatabase::TruncateString("Käse", 2), "Kä");
    EXPECT_EQ(clsDatabase::TruncateString("x", 0), "");
}

TEST_F(RowsTest, FindingMovesToTheFirstMatch)
{
    AddBudget("Food", "Living", "200", 2006, 3);
    AddBudget("Fuel", "Car", "90", 2006, 3);
    Recordset lines;
    Store().Fill(lines, "SELECT * FROM Budget", false);

    EXPECT_TRUE(clsDatabase::CanFind(lines, "Category = 'Fuel'"));
    EXPECT_EQ(ToText(lines.Get("CategoryGroup")), "Car");
    EXPECT_FALSE(clsDatabase::CanFind(lines, "Category = 'Rent'"));
    Recordset none;
    Store().Fill(none, "SELECT * FROM Budget WHERE Year = 1999", false);
    EXPECT_FALSE(clsDatabase::CanFind(none, "Category = 'Fuel'"));
}

TEST_F(RowsTest, RowsExistWhenTheConditionMatchesOne)
{
    AddAccount("O'Neil", "Bank");

    EXPECT_TRUE(Store().RowExists("Account", "AccountID = 'O''Neil'"));
    EXPECT_FALSE(Store().RowExists("Account", "AccountID = 'x'"));
    EXPECT_THROW(Store().RowExists("Nothing", "AccountID = 'x'"), EngineError);
}

TEST_F(RowsTest, ANetWorthRowIsCheckedInOrder)
{
    shown_.view = vwNetWorth;
    AddAccount("10", "Bank");

    EXPECT_EQ(Check(), "1: Please enter an account description.");
    row_.cells[NetWorth::Description] = std::string("Mine");
    EXPECT_EQ(Check(), "3: Please enter an account #.");
    row_.cells[NetWorth::AccountID] = std::string("10");
    EXPECT_EQ(Check(), "3: That account already exists.");
    row_.cells[NetWorth::AccountID] = std::string("11");
    EXPECT_EQ(Check(), "2: Please enter an account type.");
    row_.cells[NetWorth::Type] = std::string("Bank");
    EXPECT_EQ(Check(), "valid");
}

TEST_F(RowsTest, AnAccountIsNotItsOwnDuplicate)
{
    AddAccount("10", "Bank");
    AddAccount("11", "Bank");
    shown_.view = vwAccountType;
    shown_.type = "Bank";
    row_.cells = {{1, std::string("Mine")}, {2, std::string("10")}, {5, std::int32_t{1}}};

    EXPECT_EQ(Check(), "valid");
    row_.cells[AccountType::AccountID] = std::string("11");
    EXPECT_EQ(Check(), "2: That account already exists.");
}

TEST_F(RowsTest, ANetWorthAccountIsNotItsOwnDuplicateEither)
{
    AddAccount("10", "Bank");
    AddAccount("O'Neil's", "Cash");
    shown_.view = vwNetWorth;
    row_.cells = {{NetWorth::Description, std::string("Mine")},
                  {NetWorth::Type, std::string("Bank")},
                  {NetWorth::AccountID, std::string("10")},
                  {NetWorth::Sequence, std::int32_t{1}}};

    EXPECT_EQ(Check(), "valid");
    row_.cells[NetWorth::Type] = std::string("");
    EXPECT_EQ(Check(), "2: Please enter an account type.");
    row_.cells[NetWorth::AccountID] = std::string("O'Neil's");
    EXPECT_EQ(Check(), "3: That account already exists.");
    row_.cells[NetWorth::AccountID] = std::string("");
    EXPECT_EQ(Check(), "3: Please enter an account #.");
    row_.cells[NetWorth::Description] = std::string("");
    EXPECT_EQ(Check(), "1: Please enter an account description.");
}

TEST_F(RowsTest, TheNumberOfAnAccountOfAnotherTypeIsADuplicate)
{
    AddAccount("10", "Bank");
    AddAccount("C-1", "Cash");
    shown_.view = vwAccountType;
    shown_.type = "Bank";
    row_.cells = {{AccountType::Description, std::string("Mine")},
                  {AccountType::AccountID, std::string("C-1")},
                  {AccountType::Sequence, std::int32_t{1}}};

    EXPECT_EQ(Check(), "2: That account already exists.");
}

TEST_F(RowsTest, AnAccountOfOneTypeGetsThatType)
{
    shown_.view = vwAccountType;
    shown_.type = "Credit Card";

    EXPECT_EQ(Check(), "1: Please enter an account description.");
    row_.cells[AccountType::Description] = std::string("Visa");
    EXPECT_EQ(Check(), "2: Please enter an account #.");
    AddAccount("29", "Cash");
    row_.cells[AccountType::AccountID] = std::string("29");
    EXPECT_EQ(Check(), "2: That account already exists.");
    row_.cells[AccountType::AccountID] = std::string("30");
    EXPECT_EQ(Check(), "valid");
    EXPECT_EQ(row_.cells[AccountType::Type], Value{std::string("Credit Card")});
}

TEST_F(RowsTest, ABudgetRowGetsGroupAndMonth)
{
    shown_.view = vwBudget;

    EXPECT_EQ(Check(), "1: Please enter a category.");
    row_.cells[Budget::Category] = std::string("");
    EXPECT_EQ(Check(), "1: Please enter a category.");
    row_.cells[Budget::Category] = std::string("Food");
    EXPECT_EQ(Check(), "valid");
    EXPECT_EQ(row_.cells[Budget::CategoryGroup], Value{std::string("(none)")});
    EXPECT_EQ(row_.cells[Budget::Year], Value{std::int32_t{2006}});
    EXPECT_EQ(row_.cells[Budget::Period], Value{std::int32_t{3}});
}

TEST_F(RowsTest, ANewTransactionIsCompletedFromWhatIsShown)
{
    AddTransaction(41, "20", "1", 1999, 1);
    shown_.view = vwAccount;
    shown_.account = "10";
    row_.cells[Register::PostDate] = *Date::Of(2005, 12, 31);

    EXPECT_EQ(Check(), "valid");

    EXPECT_EQ(row_.cells[Register::AccountID], Value{std::string("10")});
    EXPECT_EQ(row_.cells[Register::Year], Value{std::int32_t{2006}});
    EXPECT_EQ(row_.cells[Register::Period], Value{std::int32_t{3}});
    EXPECT_EQ(row_.cells[Register::Sequence], Value{std::int32_t{42}});
    EXPECT_EQ(row_.cells[Register::Category], Value{std::string("(none)")});
    EXPECT_FALSE(row_.cells.contains(12));
    EXPECT_EQ(Rows("SELECT Category, CategoryGroup, Amount, Year, Period FROM Budget"),
              (std::vector<std::string>{"(none)|(none)|0|2006|3"}));
}

TEST_F(RowsTest, AnExistingTransactionKeepsItsAccountAndMonth)
{
    shown_.view = vwAccount;
    shown_.account = "10";
    row_.cells = {{5, std::string("Food")},
                  {7, std::string("20")},
                  {8, std::int32_t{2005}},
                  {9, std::int32_t{1}},
                  {11, std::int32_t{4}}};

    EXPECT_EQ(Check(), "valid");

    EXPECT_EQ(row_.cells[Register::AccountID], Value{std::string("20")});
    EXPECT_EQ(row_.cells[Register::Year], Value{std::int32_t{2005}});
    EXPECT_EQ(Rows("SELECT Category, Year, Period FROM Budget"),
              (std::vector<std::string>{"Food|2006|3"}));
}

TEST_F(RowsTest, HoldingsAndLoansGetTheShownAccount)
{
    shown_.account = "50";
    shown_.view = vwInvestment;
    EXPECT_EQ(Check(), "valid");
    EXPECT_EQ(row_.cells[Holdings::AccountID], Value{std::string("50")});
    shown_.view = vwLoan;
    EXPECT_EQ(Check(), "valid");
    EXPECT_EQ(row_.cells[Loans::AccountID], Value{std::string("50")});
}

TEST_F(RowsTest, TransactionsLoseADeletedCategoryInThatMonthOnly)
{
    AddTransaction(1, "10", "1", 2006, 3, "Kid''s");
    AddTransaction(2, "10", "1", 2006, 4, "Kid''s");
    shown_.view = vwBudget;
    row_.cells[Budget::Category] = std::string("Kid's");

    EXPECT_TRUE(Store().DeleteRow(true));

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Trans ORDER BY Sequence"),
              (std::vector<std::string>{"1|(none)", "2|Kid's"}));
    EXPECT_EQ(Rows("SELECT Category, Year, Period FROM Budget"),
              (std::vector<std::string>{"(none)|2006|3"}));
}

TEST_F(RowsTest, AnUnusedCategoryIsDeletedWithoutFurtherChanges)
{
    AddBudget("Food", "Living", "5", 2006, 3);
    AddTransaction(1, "10", "1", 2006, 4, "Food");
    shown_.view = vwBudget;
    row_.cells[Budget::Category] = std::string("Food");

    EXPECT_TRUE(Store().DeleteRow(true));

    EXPECT_EQ(Rows("SELECT Category FROM Trans"), (std::vector<std::string>{"Food"}));
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (std::vector<std::string>{"Food"}));
}

TEST_F(RowsTest, DeletingAnAccountKeepsItsTransactions)
{
    AddAccount("10", "Bank");
    AddAccount("20", "Bank");
    AddTransaction(1, "10", "1", 2006, 3);
    shown_.view = vwAccount;
    shown_.account = "10";

    EXPECT_TRUE(Store().DeleteRow(false));

    EXPECT_EQ(Rows("SELECT AccountID FROM Account"), (std::vector<std::string>{"20"}));
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans").size(), 1U);
}

TEST_F(RowsTest, DeletionsInOtherViewsChangeNothingElse)
{
    AddAccount("10", "Bank");
    AddTransaction(1, "10", "1", 2006, 3, "Food");
    shown_.account = "10";
    row_.cells[Register::PostDate] = std::string("Food");

    shown_.view = vwAccount;
    EXPECT_TRUE(Store().DeleteRow(true));
    shown_.view = vwNetWorth;
    EXPECT_TRUE(Store().DeleteRow(false));

    EXPECT_EQ(Rows("SELECT AccountID FROM Account").size(), 1U);
    EXPECT_EQ(Rows("SELECT Category FROM Trans"), (std::vector<std::string>{"Food"}));
}

}  // namespace
}  // namespace clb
