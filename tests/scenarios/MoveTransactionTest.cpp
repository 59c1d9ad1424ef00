// Booking the current transaction to the month before or after.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class MoveTransactionTest : public Scenario {
protected:
    /// Shows the register of the account of all transactions, the latest number first.
    void ShowRegister(int row = 1, int column = 1)
    {
        AddAccount("B-1", "Bank", "Checking");
        ShowAll();
        Click("Checking");
        Move(row, column);
    }
    std::string Budget()
    {
        return Rows(
            "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget "
            "ORDER BY Year, Period, Category");
    }
    std::string Months() { return Rows("SELECT Year, Period FROM Trans ORDER BY Sequence"); }
};

TEST_F(MoveTransactionTest, BeforeJanuaryIsDecemberOfTheYearBefore)
{
    now = "2006-01-20T00:00:00";
    AddTransaction("B-1", "2006-1", "-9", "Food");
    ShowRegister();

    Menu("mnuE_MovePrev");

    EXPECT_EQ(Rows("SELECT Year, Period, PostDate FROM Trans"), R"([2005,12,"2006-01-15"])");
    EXPECT_EQ(Budget(), R"json([2005,12,"Food","(none)","0"])json");
    EXPECT_EQ(RowsOf("data").size(), 0U);
    Press("Back");
    EXPECT_EQ(RowsOf("data").size(), 1U);
    EXPECT_EQ(Window()["totals"]["first"], "-9.00");
}

TEST_F(MoveTransactionTest, AfterDecemberIsJanuaryOfTheNextYear)
{
    now = "2005-12-20T00:00:00";
    AddTransaction("B-1", "2005-12", "-9", "Food");
    ShowRegister();

    Menu("mnuE_MoveNext");

    EXPECT_EQ(Rows("SELECT Year, Period, PostDate FROM Trans"), R"([2006,1,"2005-12-15"])");
    EXPECT_EQ(Budget(), R"json([2006,1,"Food","(none)","0"])json");
    EXPECT_EQ(Window()["totals"]["first"], "0.00");
}

TEST_F(MoveTransactionTest, TheBalanceToTheEndOfTheMonthFollowsAndTheRowsAreReadAgainOnly)
{
    AddTransaction("B-1", "2006-3", "-9");
    AddTransaction("B-1", "2006-3", "-1");
    ShowRegister();
    EXPECT_EQ(Window()["totals"]["first"], "-10.00");
    Events();

    Menu("mnuE_MovePrev");
    // Booked earlier, it still counts in the balance.
    EXPECT_EQ(Window()["totals"]["first"], "-10.00");

    Menu("mnuE_MoveNext");
    EXPECT_EQ(Window()["totals"]["first"], "-1.00");
    EXPECT_EQ(RowsOf("data").size(), 0U);
    EXPECT_TRUE(EventsOf("refresh").empty());
}

TEST_F(MoveTransactionTest, TheNextRowBecomesCurrentInTheSameColumn)
{
    for (const char* amount : {"-1", "-2", "-3"})
        AddTransaction("B-1", "2006-3", amount);
    ShowRegister(2, 3);

    Menu("mnuE_MoveNext");

    EXPECT_EQ(Current(), "2/3");
    EXPECT_EQ(Call("ColumnValue", {3}), "-1");
    EXPECT_EQ(Window()["focus"], "Grid");
}

TEST_F(MoveTransactionTest, WithoutAnotherRowTheMovesAreDisabled)
{
    AddTransaction("B-1", "2006-3", "-1");
    ShowRegister();

    Menu("mnuE_MoveNext");

    EXPECT_EQ(RowsOf("new").at(0)["row"], 1);
    for (const char* item : {"mnuE_MovePrev", "mnuE_MoveNext", "mnuE_Split", "mnuE_Delete"})
        EXPECT_EQ(Window()["menus"][item]["enabled"], false) << item;
}

TEST_F(MoveTransactionTest, AnUnsavedRowIsMovedAsItIsStored)
{
    AddTransaction("B-1", "2006-3", "-1", "Food");
    ShowRegister();
    Edit(1, 3, "-2");

    Menu("mnuE_MoveNext");

    EXPECT_EQ(Rows("SELECT Period, Amount FROM Trans"), R"([4,"-1"])");
    EXPECT_EQ(Grid()["dirty"], false);
}

TEST_F(MoveTransactionTest, TheTransactionThatIsNamedMovesWithTheCurrentRowsCategory)
{
    AddTransaction("B-1", "2006-3", "-1", "Food");
    AddTransaction("B-1", "2006-3", "-2", "Rent");
    ShowRegister(2);

    Call("MoveMonth", {2, 0, 1});

    EXPECT_EQ(Months(), "[2006,3] [2006,4]");
    EXPECT_EQ(Budget(), R"json([2006,4,"Food","(none)","0"])json");
}

TEST_F(MoveTransactionTest, AfterAnotherRowMovedNoOtherRowIsWritten)
{
    AddAccount("B-1", "Bank", "Checking");
    int last = 0;
    for (const Json& row : {Json(2), Json(3), Json("new")}) {
        for (const std::string leave : {"save", "click"}) {
            SCOPED_TRACE(row.dump() + " " + leave);
            for (const char* amount : {"-1", "-2", "-3"})
                AddTransaction("B-1", "2006-3", amount);
            last += 3;
            const std::string rows = "SELECT Sequence, Amount, Description FROM Trans";
            const std::string before = Rows(rows);
            ShowAll();
            Click("Checking");
            Edit(row, 2, "changed");

            Call("MoveMonth", {last, 0, 1});
            if (leave == "save")
                EXPECT_TRUE(Save());
            else
                Click("Net Worth");

            EXPECT_EQ(Rows(rows), before);
        }
    }
}

TEST_F(MoveTransactionTest, AfterARowMovedTheShownOneIsReadAndDeleted)
{
    for (const char* amount : {"-1", "-2", "-3", "-4"})
        AddTransaction("B-1", "2006-3", amount);
    ShowRegister(3);

    Call("MoveMonth", {4, 0, 1});
    EXPECT_EQ(Call("ColumnValue", {3}), "-2") << "another row has gone";
    Call("MoveMonth", {2, 0, 1});
    EXPECT_EQ(Call("ColumnValue", {3}), "-1") << "the current row has gone";
    AnswerBox("Yes");
    Menu("mnuE_Delete");

    EXPECT_EQ(Rows("SELECT Amount FROM Trans ORDER BY Sequence"), R"(["-2"] ["-3"] ["-4"])");
}

TEST_F(MoveTransactionTest, AnUnknownPieceFailsAndBudgetsNothing)
{
    AddTransaction("B-1", "2006-3", "-1", "Food");
    ShowRegister();

    EXPECT_NE(ErrorOf({{"do", "call"}, {"op", "MoveMonth"}, {"args", {1, 1, 1}}}), 0);

    EXPECT_EQ(Months(), "[2006,3]");
    EXPECT_EQ(Budget(), "");
}

TEST_F(MoveTransactionTest, ItsStatementsNameThePieceAndTheOtherMonthsLine)
{
    AddTransaction("B-1", "2006-3", "-1", "Kids' toys");
    ShowRegister();
    Trace();

    Call("MoveMonth", {1, 0, 1});

    const std::string sent = Statements();
    EXPECT_TRUE(sent.starts_with(
        "SELECT Year, Period FROM Trans WHERE Trans.Sequence = 1 AND Trans.SubSequence = 0\n"
        "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE Budget.Year = 2006 "
        "AND Budget.Period = 4 AND Budget.Category = 'Kids'' toys'\n"))
        << sent;
}

}  // namespace
}  // namespace clb
