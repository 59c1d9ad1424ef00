// A row has disappeared from the view: what the program reports about the other program's change.

#include "tests/stress/TwoPrograms.h"

namespace clb {
namespace {

class RowFateTest : public TwoPrograms {
protected:
    /// The error of a command on the current row, transaction 3, after another program's statement.
    std::string AfterOther(const std::string& statement)
    {
        Click("Checking");
        Grid();
        Move(1, 1);
        OtherSql(statement);
        return MessageOf(TryMenu("mnuE_Delete"));
    }
    static std::string MessageOf(const Json& reply)
    {
        return reply["ok"] == true ? "" : reply["error"]["message"].get<std::string>();
    }
};

/// Symptom: in all these cases the program said that the row was deleted.
TEST_F(RowFateTest, ARowThatWasMovedIsNotCalledDeleted)
{
    EXPECT_EQ(AfterOther("UPDATE Trans SET AccountID = 'B-2' WHERE Sequence = 3"),
              "Another program has moved the current row to another account");
    OtherSql("UPDATE Trans SET AccountID = 'B-1' WHERE Sequence = 3");
    EXPECT_EQ(AfterOther("UPDATE Trans SET [Year] = 2005 WHERE Sequence = 3"),
              "Another program has moved the current row to another month");
    OtherSql("UPDATE Trans SET [Year] = 2006 WHERE Sequence = 3");
    EXPECT_EQ(AfterOther("UPDATE Trans SET Sequence = 9 WHERE Sequence = 3"),
              "Another program has deleted the current row or given it another number");
    OtherSql("UPDATE Trans SET Sequence = 3 WHERE Sequence = 9");
    EXPECT_EQ(AfterOther("DELETE FROM Trans WHERE Sequence = 3"),
              "Another program has deleted the current row");

    EXPECT_EQ(Stored(), "1:-10 2:-20");
}

TEST_F(RowFateTest, ARowThatIsNamedByItsNumberAsWell)
{
    Grid();
    OtherSql("UPDATE Trans SET Period = 4 WHERE Sequence = 2");

    EXPECT_EQ(MessageOf(Try({{"do", "move"}, {"row", 2}, {"col", 1}})),
              "Another program has moved row 2 to another month");
}

TEST_F(RowFateTest, InTheViewsOfAccountsHoldingsAndTheBudgetToo)
{
    Click("Budget");
    Grid();
    Move(2, 1);
    OtherSql("UPDATE Budget SET Period = 4");
    EXPECT_EQ(MessageOf(TryMenu("mnuE_Delete")),
              "Another program has moved the current row to another month");
    Click("Bank");
    Grid();
    Move(1, 1);
    OtherSql("UPDATE Account SET Type = 'Cash' WHERE AccountID = 'B-1'");

    EXPECT_EQ(MessageOf(TryMenu("mnuE_Delete")),
              "Another program has given the current row another type");
}

TEST_F(RowFateTest, WhatIsTypedIntoARowThatWasMovedIsNotSaved)
{
    Grid();
    Edit(1, 3, "-35");
    OtherSql("UPDATE Trans SET AccountID = 'B-2' WHERE Sequence = 3");
    Events();

    Save();

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0]["text"].get<std::string>(),
                testing::HasSubstr("moved this record to another account"));
    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-30");
}

}  // namespace
}  // namespace clb
