// Rows that may not be saved: the message to the user, and the current cell afterwards.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class RefusedRowsTest : public Scenario {
protected:
    RefusedRowsTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        AddBudget("2006-3", "Food", "300");
        ShowAll();
        stored_ = Stored();
    }

    /// Everything that a refused row could have changed.
    std::string Stored()
    {
        return Rows(
                   "SELECT AccountID, Description, Type, OpeningBalance FROM Account ORDER BY "
                   "Sequence") +
               Rows("SELECT Category, Amount FROM Budget ORDER BY Sequence");
    }
    Json NewRow() { return RowsOf("new").at(0)["row"]; }
    /// Saves the row. Expects a refusal with the message, with the current cell in the column of
    /// the row.
    void ExpectRefused(const Json& row, int column, const std::string& message)
    {
        SCOPED_TRACE(message);
        Events();
        EXPECT_FALSE(Save());
        const std::vector<Json> boxes = EventsOf("box");
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0]["text"], message);
        EXPECT_EQ(boxes[0]["style"], 16);
        EXPECT_EQ(boxes[0]["title"], "Corvane Ledgerbook");
        EXPECT_EQ(boxes[0]["answer"], "OK");
        EXPECT_EQ(Current(), row.dump() + "/" + std::to_string(column) + " editing dirty");
        EXPECT_EQ(Stored(), stored_);
        EXPECT_EQ(Window()["focus"], "Grid");
    }

    std::string stored_;
};

TEST_F(RefusedRowsTest, ANewAccountIsAskedForItsCellsOneByOne)
{
    const Json row = NewRow();
    Edit("new", 4, "5");

    ExpectRefused(row, 1, "Please enter an account description.");
    Edit("new", 1, "Wallet");
    ExpectRefused(row, 3, "Please enter an account #.");
    Edit("new", 3, "B-2");
    ExpectRefused(row, 3, "That account already exists.");
    Edit("new", 3, "C-1");
    ExpectRefused(row, 2, "Please enter an account type.");

    Edit("new", 2, "Cash");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT Description, Type, AccountID, OpeningBalance FROM Account WHERE "
                   "AccountID = 'C-1'"),
              R"(["Wallet","Cash","C-1","5"])");
}

TEST_F(RefusedRowsTest, AStoredAccountMayNotLoseACell)
{
    Edit(2, 3, "");
    Move(2, 4);

    ExpectRefused(2, 3, "Please enter an account #.");

    Escape();
    Escape();
    EXPECT_EQ(Current(), "2/3");
}

TEST_F(RefusedRowsTest, AmongAccountsOfOneTypeTheNumberIsInColumn2)
{
    Click("Bank");
    const Json row = NewRow();
    Edit("new", 1, "Giro");

    ExpectRefused(row, 2, "Please enter an account #.");

    Edit("new", 2, "B-3");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT Type FROM Account WHERE AccountID = 'B-3'"), R"(["Bank"])");
}

TEST_F(RefusedRowsTest, ABudgetLineNeedsACategory)
{
    Click("Budget");
    const Json row = NewRow();
    Edit("new", 2, "50");

    ExpectRefused(row, 1, "Please enter a category.");

    Edit("new", 1, "Rent");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT Category, Amount FROM Budget ORDER BY Sequence"),
              R"(["Food","300"] ["Rent","50"])");
}

TEST_F(RefusedRowsTest, EveryAttemptToLeaveReportsAgain)
{
    Edit(1, 1, "");
    Events();

    EXPECT_FALSE(Move(2, 1));
    EXPECT_EQ(EventsOf("box").size(), 1U);
    EXPECT_EQ(Focus("TreeView"), "Grid");
    EXPECT_EQ(EventsOf("box").size(), 1U);
    EXPECT_EQ(Do({{"do", "click"}, {"text", "Budget"}})["clicked"], false);
    EXPECT_EQ(EventsOf("box").size(), 1U);
    EXPECT_EQ(Current(), "1/1 editing dirty");
}

TEST_F(RefusedRowsTest, AToolbarButtonRunsNoCommandOnARefusedRow)
{
    Edit(1, 1, "");
    Events();

    for (const char* button : {"Back", "Forward", "Link", "New"}) {
        Press(button);
        const std::vector<Json> boxes = EventsOf("box");
        ASSERT_EQ(boxes.size(), 1U) << button;
        EXPECT_EQ(boxes[0]["text"], "Please enter an account description.") << button;
    }

    EXPECT_EQ(Window()["period"], 3);
    EXPECT_EQ(Current(), "1/1 editing dirty");
}

TEST_F(RefusedRowsTest, ADiscardedNewRowIsEmptyAgain)
{
    Edit("new", 1, "Wallet");
    EXPECT_FALSE(Save());

    Escape();
    Escape();

    EXPECT_EQ(ToLine(RowsOf("new").at(0)["values"]), "[null,null,null,null,null,null]");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Stored(), stored_);
}

TEST_F(RefusedRowsTest, ARefusedRowGetsNoDefaults)
{
    Edit("new", 1, "Wallet");

    EXPECT_FALSE(Save());

    EXPECT_EQ(ToLine(RowsOf("new").at(0)["values"]), R"(["Wallet",null,null,null,null,null])");
}

}  // namespace
}  // namespace clb
