// What the untouched cells of a saved row hold.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class DefaultsTest : public Scenario {
protected:
    DefaultsTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
    }
};

TEST_F(DefaultsTest, UntouchedCellsOfANewAccountGet0)
{
    Edit("new", 1, "Wallet");
    Edit("new", 2, "Cash");
    Edit("new", 3, "C-1");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT OpeningBalance, CurrentBalance, BudgetInclude, Sequence FROM Account "
                   "WHERE AccountID = 'C-1'"),
              R"(["0","0",true,4])");
}

TEST_F(DefaultsTest, UntouchedCellsOfANewBudgetLineGet0AndTheMonth)
{
    Click("Budget");
    Edit("new", 1, "Food");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Category, CategoryGroup, Amount, Year, Period, Sequence FROM Budget"),
              R"json(["Food","(none)","0",2006,3,1])json");
}

TEST_F(DefaultsTest, UntouchedCellsOfANewTransactionGet0AndNoTextButNoDate)
{
    Click("Checking");
    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT PostDate, Description, Amount, CheckID, Category, PayeeName, AccountID, "
                   "Year, Period, FITID, Sequence, SubSequence FROM Trans"),
              R"json([null,"","-5","","(none)","","B-1",2006,3,"",1,0])json");
}

TEST_F(DefaultsTest, UntouchedDateAndQuantityOfANewHoldingStayEmpty)
{
    Click("Broker");
    Edit("new", 1, "ACME");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, "
                   "LastPrice, Total, AccountID, Sequence FROM Investment"),
              R"json(["ACME","",null,null,"0","0","0","I-1",1])json");
}

TEST_F(DefaultsTest, AnUntouchedRateOfANewLoanStaysEmpty)
{
    Click("House");
    Edit("new", 2, "1000");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Description, OriginalAmount, PaidAmount, InterestRate, AccountID, "
                   "Sequence FROM Loan"),
              R"json(["","1000","0",null,"L-1",1])json");
}

TEST_F(DefaultsTest, AStoredRowsEmptyCellsAreFilledWhenItIsSaved)
{
    Sql("INSERT INTO Trans (Sequence, AccountID, Year, Period, Amount, Description, PostDate) "
        "VALUES (7, 'B-1', 2006, 3, NULL, NULL, NULL)");
    Click("Checking");
    Edit(1, 4, "1001");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT PostDate, Description, Amount, CheckID, Category, PayeeName, FITID, "
                   "Sequence, SubSequence FROM Trans"),
              R"json([null,"","0","1001","(none)","","",7,0])json");
}

}  // namespace
}  // namespace clb
