// Deleting rows by command, and what the window shows afterwards.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class DeletedRowsTest : public Scenario {
protected:
    DeletedRowsTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings", "20");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
    }

    /// Deletes a row by the menu and answers the question.
    void Delete(const Json& row, const std::string& answer = "Yes")
    {
        Move(row, 1);
        AnswerBox(answer);
        Menu("mnuE_Delete");
    }
    std::string Accounts() { return Rows("SELECT AccountID FROM Account ORDER BY Sequence"); }
};

TEST_F(DeletedRowsTest, TheQuestionHasYesAndNoUnderTheProgramsName)
{
    ShowAll();
    Events();

    Delete(1, "No");

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(ToLine(boxes[0]),
              R"({"event":"box","text":"Are you sure you want to delete this record?",)"
              R"("style":36,"title":"Corvane Ledgerbook","answer":"No"})");
    EXPECT_EQ(Accounts(), R"(["B-1"] ["B-2"] ["I-1"] ["L-1"])");
    EXPECT_EQ(RowsOf("data").size(), 4U);
}

TEST_F(DeletedRowsTest, AnAccountsNodeIsRemovedAndTheNetWorthIsShownAgain)
{
    ShowAll();
    AddTransaction("B-2", "2006-3", "-9");

    Delete(2);

    EXPECT_EQ(Accounts(), R"(["B-1"] ["I-1"] ["L-1"])");
    EXPECT_EQ(TreeTexts(), "[Net Worth], Budget, Bank, Checking, Investment, Broker, Loan, House");
    EXPECT_EQ(Window()["view"], 1);
    EXPECT_EQ(Window()["totals"]["first"], "100.00");
    EXPECT_EQ(Column(3), R"("B-1" "I-1" "L-1")");
    EXPECT_EQ(Rows("SELECT AccountID FROM Trans"), R"(["B-2"])");
}

TEST_F(DeletedRowsTest, WithTheLastAccountOfATypeTheTypesNodeIsRemoved)
{
    ShowAll();

    Delete(3);

    EXPECT_EQ(TreeTexts(), "[Net Worth], Budget, Bank, Checking, Savings, Loan, House");
}

TEST_F(DeletedRowsTest, AmongAccountsOfATypeTheTypeIsShownAgain)
{
    ShowAll();
    Click("Bank");

    Delete(1);

    EXPECT_EQ(TreeTexts(), "Net Worth, Budget, [Bank], Savings, Investment, Broker, Loan, House");
    EXPECT_EQ(Window()["view"], 3);
    EXPECT_EQ(Window()["accountType"], "Bank");
    EXPECT_EQ(Window()["caption"], "Bank - Corvane Ledgerbook");
    EXPECT_EQ(Column(2), R"("B-2")");
}

TEST_F(DeletedRowsTest, IfTheShownTypeDisappearsTheNetWorthIsShown)
{
    ShowAll();
    Click("Loan");

    Delete(1);

    EXPECT_EQ(TreeTexts(), "[Net Worth], Budget, Bank, Checking, Savings, Investment, Broker");
    EXPECT_EQ(Window()["view"], 1);
    EXPECT_EQ(Window()["caption"], "Net Worth - Corvane Ledgerbook");
    EXPECT_EQ(Window()["totals"]["label"], "Total Net Worth:");
    EXPECT_EQ(Column(3), R"("B-1" "B-2" "I-1")");
}

TEST_F(DeletedRowsTest, ADeclinedDeletionDoesNotChangeTheTree)
{
    ShowAll();
    const std::string before = TreeTexts();
    Events();

    Delete(3, "No");

    EXPECT_EQ(TreeTexts(), before);
    EXPECT_EQ(EventsOf("refresh").size(), 0U);
}

TEST_F(DeletedRowsTest, ADeletedTransactionChangesTheBalanceButNotTheTree)
{
    AddTransaction("B-1", "2006-3", "-9");
    AddTransaction("B-1", "2006-3", "-1");
    ShowAll();
    Click("Checking");
    const Json before = Tree();

    Delete(1);

    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Column(11), "1");
    EXPECT_EQ(Balance("B-1"), R"(["-9"])");
    EXPECT_EQ(Window()["totals"]["first"], "91.00");

    Delete(1);
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), "");
    EXPECT_EQ(Balance("B-1"), R"(["0"])");
    EXPECT_EQ(Window()["totals"]["first"], "0.00");
    EXPECT_EQ(Window()["menus"]["mnuE_Delete"]["enabled"], false);
}

TEST_F(DeletedRowsTest, OfPiecesThatShareANumberOnlyTheCurrentOneIsDeleted)
{
    AddTransaction("B-1", "2006-3", "-100");
    for (const char* piece : {"1", "2"})
        Sql("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Amount, Year, Period) "
            "VALUES (1, " +
            std::string(piece) + ", 'B-1', #2006-03-15#, -30, 2006, 3)");
    ShowAll();
    Click("Checking");

    Delete(2);

    EXPECT_EQ(Rows("SELECT SubSequence FROM Trans ORDER BY SubSequence"), "[0] [2]");
    EXPECT_EQ(Balance("B-1"), R"(["-130"])");
}

TEST_F(DeletedRowsTest, TheLargestNumberIsUsedAgain)
{
    AddTransaction("B-1", "2006-3", "-9");
    AddTransaction("B-1", "2006-3", "-1");
    ShowAll();
    Click("Checking");

    Delete(1);
    Edit("new", 3, "5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Sequence, Amount FROM Trans ORDER BY Sequence"), R"([1,"-9"] [2,"5"])");
}

TEST_F(DeletedRowsTest, ADeletedBudgetLineFreesTheMonthsTransactionsOnly)
{
    AddBudget("2006-3", "Kids' toys", "5");
    AddBudget("2006-3", "Rent", "900");
    AddTransaction("B-1", "2006-3", "-9", "Kids' toys");
    AddTransaction("B-1", "2006-4", "-9", "Kids' toys");
    ShowAll();
    Click("Budget");

    Delete(2);

    EXPECT_EQ(Rows("SELECT Period, Category FROM Trans ORDER BY Period"),
              R"json([3,"(none)"] [4,"Kids' toys"])json");
    EXPECT_EQ(Rows("SELECT Category, CategoryGroup, Amount FROM Budget ORDER BY Category"),
              R"json(["(none)","(none)","0"] ["Rent","(none)","900"])json");
    EXPECT_EQ(Window()["totals"]["first"], "900.00");
    EXPECT_EQ(Window()["totals"]["second"], "-9.00");
}

TEST_F(DeletedRowsTest, DeletingAnUnusedBudgetLineChangesNothingElse)
{
    AddBudget("2006-3", "Food", "5");
    AddTransaction("B-1", "2006-4", "-9", "Food");
    ShowAll();
    Click("Budget");

    Delete(2);

    EXPECT_EQ(Rows("SELECT Category FROM Budget"), "");
    EXPECT_EQ(Rows("SELECT Category FROM Trans"), R"(["Food"])");
    EXPECT_EQ(RowsOf("group").size(), 0U);
    EXPECT_EQ(RowsOf("footer").size(), 0U);
}

TEST_F(DeletedRowsTest, ADeclinedBudgetDeletionDoesNotChangeTheTransactions)
{
    AddBudget("2006-3", "Food", "5");
    AddTransaction("B-1", "2006-3", "-9", "Food");
    ShowAll();
    Click("Budget");

    Delete(2, "No");

    EXPECT_EQ(Rows("SELECT Category FROM Trans"), R"(["Food"])");
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), R"(["Food"])");
}

TEST_F(DeletedRowsTest, AfterDeletingHoldingsAndLoansTheBalanceIsThatOfTheOthers)
{
    AddHolding("I-1", "ACME", "10");
    AddHolding("I-1", "OTHER", "5");
    AddLoan("L-1", "Car", "500", "50");
    AddLoan("L-1", "Mortgage", "1000", "100");
    ShowAll();

    Click("Broker");
    Delete(1);
    EXPECT_EQ(Rows("SELECT StockSymbol FROM Investment"), R"(["OTHER"])");
    EXPECT_EQ(Balance("I-1"), R"(["5"])");
    EXPECT_EQ(Window()["totals"]["first"], "5.00");

    Click("House");
    Delete(1);
    EXPECT_EQ(Rows("SELECT Description FROM Loan"), R"(["Mortgage"])");
    EXPECT_EQ(Balance("L-1"), R"(["900"])");
    EXPECT_EQ(Window()["totals"]["first"], "900.00");
}

TEST_F(DeletedRowsTest, TheToolbarSavesTheRowBeforeTheQuestion)
{
    AddTransaction("B-1", "2006-3", "-9");
    ShowAll();
    Click("Checking");
    Edit(1, 3, "-10");
    AnswerBox("No");

    Press("Delete");

    EXPECT_EQ(Rows("SELECT Amount FROM Trans"), R"(["-10"])");
    EXPECT_EQ(Balance("B-1"), R"(["-10"])");
}

TEST_F(DeletedRowsTest, TheNextRowBecomesCurrent)
{
    ShowAll();
    Click("Bank");

    Delete(1);

    EXPECT_EQ(Current(), "1/1");
    EXPECT_EQ(Window()["accountID"], "B-2");
}

}  // namespace
}  // namespace clb
