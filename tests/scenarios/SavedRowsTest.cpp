// What the window brings up to date after a row was saved.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class SavedRowsTest : public Scenario {
protected:
    SavedRowsTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
    }

    std::string Totals()
    {
        const Json totals = Window()["totals"];
        return totals["first"].get<std::string>() + " | " + totals["second"].get<std::string>();
    }
};

TEST_F(SavedRowsTest, ASavedNewRowIsCurrentAndTheLineBelowIsEmptyAgain)
{
    Click("Checking");
    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Current(), "1/3");
    EXPECT_EQ(Column(3), R"("-5")");
    const Json line = RowsOf("new").at(0);
    EXPECT_EQ(line["row"], 2);
    EXPECT_EQ(ToLine(line["values"][2]), "null");
}

// Symptom: Delete stayed disabled, as on the line for a new row, until the user moved.
TEST_F(SavedRowsTest, CommandsAreEnabledForASavedNewRowAtOnce)
{
    Click("Checking");
    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());

    const Json menus = Window()["menus"];
    for (const char* item : {"mnuE_New", "mnuE_Delete", "mnuE_MovePrev", "mnuE_Split"})
        EXPECT_EQ(menus[item]["enabled"], true) << item;
    EXPECT_EQ(Window()["toolbar"]["Delete"], true);
}

TEST_F(SavedRowsTest, ASavedNewAccountIsTheViewsAccountAtOnce)
{
    Edit("new", 1, "Wallet");
    Edit("new", 2, "Cash");
    Edit("new", 3, "C-1");
    EXPECT_TRUE(Save());

    const Json window = Window();
    EXPECT_EQ(window["accountID"], "C-1");
    EXPECT_EQ(window["accountType"], "Cash");
    EXPECT_EQ(window["menus"]["mnuF_Export"]["enabled"], true);
}

TEST_F(SavedRowsTest, ARegistersBalanceAndTotalFollow)
{
    AddTransaction("B-1", "2006-1", "-10");
    AddTransaction("B-1", "2006-8", "-1000");
    Click("Checking");

    Edit("new", 3, "2.25");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Balance("B-1"), R"(["-1007.75"])");
    EXPECT_EQ(Totals(), "92.25 | 0.00");

    Edit(1, 3, "3.25");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Balance("B-1"), R"(["-1006.75"])");
    EXPECT_EQ(Totals(), "93.25 | 0.00");
}

TEST_F(SavedRowsTest, OnlyTheShownAccountsBalanceIsRecomputed)
{
    AddAccount("B-2", "Bank", "Savings");
    Sql("UPDATE Account SET CurrentBalance = 7 WHERE AccountID = 'B-2'");
    Click("Checking");

    Edit("new", 3, "5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Balance("B-1"), R"(["5"])");
    EXPECT_EQ(Balance("B-2"), R"(["7"])");
}

TEST_F(SavedRowsTest, AHoldingsTotalIsItsAccountsBalance)
{
    AddHolding("I-1", "ACME", "10");
    AddHolding("I-2", "OTHER", "99");
    Click("Broker");

    Edit(1, 7, "1234.5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Balance("I-1"), R"(["1234.5"])");
    EXPECT_EQ(Totals(), "1,234.50 | 0.00");
}

TEST_F(SavedRowsTest, ALoansBalanceIsWhatIsNotPaidYet)
{
    AddLoan("L-1", "Mortgage", "1000", "100");
    AddLoan("L-2", "Car", "500", "50");
    Click("House");
    EXPECT_EQ(RowsOf("data").at(0)["values"][6], 900);

    Edit(1, 3, "250");
    EXPECT_EQ(RowsOf("data").at(0)["values"][6], 750);
    EXPECT_TRUE(Save());

    EXPECT_EQ(RowsOf("data").at(0)["values"][6], 750);
    EXPECT_EQ(Balance("L-1"), R"(["750"])");
    EXPECT_EQ(Totals(), "1,200.00 | 0.00");
}

TEST_F(SavedRowsTest, AnAccountsBalanceFollowsItsOpening)
{
    Sql("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'B-1'");
    Call("Refresh");
    Edit(1, 4, "200.5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(ToLine(RowsOf("data").at(0)["values"][4]), R"("205.5")");
    EXPECT_EQ(Totals(), "200.50 | 205.50");
    EXPECT_EQ(Balance("B-1"), R"(["5"])");
}

TEST_F(SavedRowsTest, TheBudgetsTotalFollows)
{
    AddBudget("2006-3", "Food", "300");
    Click("Budget");

    Edit(2, 2, "450");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Totals(), "450.00 | 0.00");
    EXPECT_EQ(RowsOf("footer").at(0)["text"], "Total (budgeted/actual): $450.00 / $0.00");
}

TEST_F(SavedRowsTest, AnAccountOfANewTypeGrowsTheTreeAndTheSelectionKeepsItsPlace)
{
    Edit("new", 1, "Wallet");
    Edit("new", 2, "Cash");
    Edit("new", 3, "C-1");
    EXPECT_TRUE(Save());

    EXPECT_EQ(TreeTexts(),
              "[Net Worth], Budget, Bank, Checking, Cash, Wallet, Investment, Broker, Loan, House");
    EXPECT_EQ(Tree()[5]["tag"],
              "4\x01"
              "C-1");
    EXPECT_EQ(Window()["view"], 1);
}

TEST_F(SavedRowsTest, ANewAccountOfTheTypeJoinsItsNodeWhichStaysSelected)
{
    Click("Loan");
    Edit("new", 1, "Boat");
    Edit("new", 2, "L-2");
    Events();
    EXPECT_TRUE(Save());

    EXPECT_EQ(TreeTexts(),
              "Net Worth, Budget, Bank, Checking, Investment, Broker, [Loan], Boat, House");
    EXPECT_EQ(EventsOf("refresh").size(), 0U);
    EXPECT_EQ(Window()["view"], 3);
    EXPECT_EQ(Window()["caption"], "Loan - Corvane Ledgerbook");
}

TEST_F(SavedRowsTest, ARenamedAccountIsRenamedInTheTree)
{
    Edit(1, 1, "Current");
    EXPECT_TRUE(Save());

    EXPECT_EQ(TreeTexts(), "[Net Worth], Budget, Bank, Current, Investment, Broker, Loan, House");
}

TEST_F(SavedRowsTest, AChangedNumberIsChangedInTheAccountsRowsToo)
{
    AddTransaction("B-1", "2006-3", "-9");

    Edit(1, 3, "B-9");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT AccountID FROM Trans"), R"(["B-9"])");
    Click("Checking");
    EXPECT_EQ(Window()["accountID"], "B-9");
    EXPECT_EQ(RowsOf("data").size(), 1U);
}

TEST_F(SavedRowsTest, OfPiecesThatShareANumberOnlyTheCurrentOneIsChanged)
{
    AddTransaction("B-1", "2006-3", "-100", "Food");
    Sql("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
        "Category, Year, Period) VALUES (1, 1, 'B-1', #2006-03-15#, 'Piece', -30, 'Rent', 2006, "
        "3)");
    Click("Checking");
    EXPECT_EQ(Column(12), "0 1");

    Edit(2, 3, "-31");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT SubSequence, Amount, Category FROM Trans ORDER BY SubSequence"),
              R"([0,"-100","Food"] [1,"-31","Rent"])");
    EXPECT_EQ(Current(), "2/3");
}

TEST_F(SavedRowsTest, OfPiecesThatShareANumberOnlyTheCurrentOneIsMoved)
{
    AddTransaction("B-1", "2006-3", "-100", "Food");
    Sql("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Category, Year, "
        "Period) VALUES (1, 1, 'B-1', #2006-03-15#, -30, 'Rent', 2006, 3)");
    Click("Checking");
    Move(2, 1);

    Menu("mnuE_MovePrev");

    EXPECT_EQ(Rows("SELECT SubSequence, Period FROM Trans ORDER BY SubSequence"), "[0,3] [1,2]");
    EXPECT_EQ(Column(12), "0");
    EXPECT_EQ(Rows("SELECT Category, Period FROM Budget"), R"(["Rent",2])");
}

}  // namespace
}  // namespace clb
