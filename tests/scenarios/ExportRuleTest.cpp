// Which account a view gives to the export, and whether it may be exported.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class ExportRuleTest : public Scenario {
protected:
    ExportRuleTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("C-1", "Cash", "Wallet");
        AddAccount("V-1", "Credit Card", "Visa");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
    }

    /// Number and type of the view's account, and whether the export is enabled.
    std::string Chosen()
    {
        const Json window = Window();
        return window["accountID"].get<std::string>() + " " +
               window["accountType"].get<std::string>() +
               (window["menus"]["mnuF_Export"]["enabled"] == true ? " exported" : "");
    }
};

TEST_F(ExportRuleTest, TheNetWorthTakesNumberAndTypeOfItsCurrentRow)
{
    EXPECT_EQ(Chosen(), "B-1 Bank exported");

    const char* const chosen[] = {"B-1 Bank exported", "C-1 Cash exported",
                                  "V-1 Credit Card exported", "I-1 Investment", "L-1 Loan"};
    for (int row = 1; row <= 5; ++row) {
        Move(row, 1);
        EXPECT_EQ(Chosen(), chosen[row - 1]);
        EXPECT_EQ(Window()["menus"]["mnuE_New"]["enabled"], true);
        EXPECT_EQ(Window()["menus"]["mnuE_Delete"]["enabled"], true);
    }
}

TEST_F(ExportRuleTest, OnTheNewRowLineTheAccountOfTheLastRowStaysButIsNotExported)
{
    Move(2, 1);
    Move("new", 1);

    EXPECT_EQ(Chosen(), "C-1 Cash");
}

TEST_F(ExportRuleTest, TheAccountsOfOneTypeAreChosenByTheirRow)
{
    AddAccount("B-2", "Bank", "Savings");
    Click("Bank");
    EXPECT_EQ(Chosen(), "B-1 Bank exported");

    Move(2, 1);
    EXPECT_EQ(Chosen(), "B-2 Bank exported");

    Click("Loan");
    EXPECT_EQ(Chosen(), "L-1 Loan");
    Click("Investment");
    EXPECT_EQ(Chosen(), "I-1 Investment");
    Click("Credit Card");
    EXPECT_EQ(Chosen(), "V-1 Credit Card exported");
}

TEST_F(ExportRuleTest, ARegisterIsExportedOnAnyRow)
{
    Click("Cash");
    Click("Wallet");

    EXPECT_EQ(Chosen(), "C-1 Cash exported");
    Move("new", 1);
    EXPECT_EQ(Chosen(), "C-1 Cash exported");
}

TEST_F(ExportRuleTest, HoldingsAndLoansSetTheirTypeAndAreNotExported)
{
    Click("Broker");
    EXPECT_EQ(Chosen(), "I-1 Investment");

    Click("House");
    EXPECT_EQ(Chosen(), "L-1 Loan");
}

TEST_F(ExportRuleTest, TheBudgetKeepsTheAccountAndIsNotExported)
{
    Move(2, 1);
    Click("Budget");

    EXPECT_EQ(Chosen(), "C-1 Cash");
}

TEST_F(ExportRuleTest, ATypeThatIsNotSpelledExactlyIsNotExported)
{
    AddAccount("X-1", "bank", "Odd");
    Call("Refresh");
    const std::vector<Json> rows = RowsOf("data");
    for (const Json& row : rows)
        if (row["values"][2] == "X-1")
            Move(row["row"], 1);

    EXPECT_EQ(Chosen(), "X-1 bank");
}

TEST_F(ExportRuleTest, AChosenTypeCountsAsSoonAsItsCellIsLeft)
{
    Edit(1, 2, "Loan");
    EXPECT_EQ(Chosen(), "B-1 Loan");

    Edit(1, 2, "Cash");
    EXPECT_EQ(Chosen(), "B-1 Cash exported");
}

TEST_F(ExportRuleTest, WithoutAnyAccountNothingIsExported)
{
    Sql("DELETE FROM Account");
    ShowAll();

    EXPECT_EQ(Window()["menus"]["mnuF_Export"]["enabled"], false);
    Click("Budget");
    EXPECT_EQ(Window()["menus"]["mnuF_Export"]["enabled"], false);
}

}  // namespace
}  // namespace clb
