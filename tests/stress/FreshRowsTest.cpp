// Another program writes while a register is shown. The next command works on what is stored, and a
// row's number means the row that was shown with it.

#include "tests/stress/TwoPrograms.h"

namespace clb {
namespace {

using FreshRowsTest = TwoPrograms;

TEST_F(FreshRowsTest, ARowThatAnotherProgramAddedIsShownFromTheNextCommandOn)
{
    OtherAdds(4, "-40");

    Move(1, 1);

    EXPECT_EQ(Column(11), "4 3 2 1");
    EXPECT_EQ(Window()["totals"]["first"], "-100.00");
}

TEST_F(FreshRowsTest, ADeletedRowIsMissingFromTheNextCommandOn)
{
    OtherSql("DELETE FROM Trans WHERE Sequence = 2");

    Move(1, 1);

    EXPECT_EQ(Column(11), "3 1");
    EXPECT_EQ(Window()["totals"]["first"], "-40.00");
}

TEST_F(FreshRowsTest, AChangedRowShowsItsNewValuesFromTheNextCommandOn)
{
    OtherSql("UPDATE Trans SET Amount = -25, Category = 'Fun' WHERE Sequence = 2");

    Move(1, 1);

    EXPECT_EQ(Column(3), R"("-30" "-25" "-10")");
    EXPECT_EQ(Column(5), R"("Food" "Fun" "Food")");
    EXPECT_EQ(Window()["totals"]["first"], "-65.00");
}

TEST_F(FreshRowsTest, AClickShowsWhatAnotherProgramHasImported)
{
    Other({"import", Statement("march.ofx", "F1")});

    Click("Savings");
    Click("Checking");

    EXPECT_EQ(Window()["totals"]["first"], "-67.00");
    EXPECT_EQ(RowsOf("data").size(), 4U);
}

TEST_F(FreshRowsTest, WritesOfOtherProgramsDoNotReloadTheView)
{
    OtherAdds(4, "-40");
    Grid();
    Window();
    Tree();
    EXPECT_TRUE(EventsOf("refresh").empty());

    Move(1, 2);
    EXPECT_TRUE(EventsOf("refresh").empty());

    OtherSql("DELETE FROM Trans WHERE Sequence = 4");
    Edit(2, 2, "Shoes");
    EXPECT_TRUE(Save());
    EXPECT_TRUE(EventsOf("refresh").empty());
}

TEST_F(FreshRowsTest, TheCurrentCellStaysOnItsRow)
{
    Move(2, 3);
    OtherAdds(4, "-40");

    Do({{"do", "focus"}, {"control", "Grid"}});

    EXPECT_EQ(Current(), "3/3");
    EXPECT_EQ(RowsOf("data").at(2)["key"], 2);
}

TEST_F(FreshRowsTest, ARowsNumberMeansTheRowThatWasShownUnderIt)
{
    Grid();
    OtherAdds(4, "-40");

    EXPECT_TRUE(Edit(1, 3, "-35"));
    EXPECT_TRUE(Save());

    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-35 4:-40");
    EXPECT_EQ(StoredBalance(), "-105");
}

TEST_F(FreshRowsTest, ARowsNumberKeepsItsMeaningUntilTheGridIsReadAgain)
{
    Grid();
    OtherAdds(4, "-40");

    Move(1, 1);
    EXPECT_TRUE(Edit(2, 3, "-25"));
    EXPECT_TRUE(Save());

    EXPECT_EQ(Stored(), "1:-10 2:-25 3:-30 4:-40");
}

TEST_F(FreshRowsTest, ACommandOnARowOfAnEarlierNumberReachesThatRow)
{
    Grid();
    OtherAdds(4, "-40");

    Move(3, 1);
    Menu("mnuE_MoveNext");

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Period = 4"), "[1]");
}

TEST_F(FreshRowsTest, TheNumberOfADeletedRowIsRefused)
{
    Grid();
    OtherSql("DELETE FROM Trans WHERE Sequence = 3");

    ErrorOf({{"do", "edit"}, {"row", 1}, {"col", 3}, {"text", "-35"}});

    EXPECT_FALSE(Dirty());
    EXPECT_EQ(Stored(), "1:-10 2:-20");
    Edit(1, 3, "-25");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Stored(), "1:-10 2:-25");
}

TEST_F(FreshRowsTest, ACommandDoesNotReachTheRowAfterADeletedOne)
{
    for (const char* item : {"mnuE_Delete", "mnuE_MoveNext", "mnuE_MovePrev", "mnuE_Split"}) {
        OtherAdds(4, "-40");
        Click("Checking");
        Grid();
        Move(1, 1);
        OtherSql("DELETE FROM Trans WHERE Sequence = 4");
        if (item == std::string("mnuE_Delete"))
            AnswerBox("Yes");
        if (item == std::string("mnuE_Split"))
            AnswerForm("frmSplit", R"([{"set": "txtNew", "to": "-1"}, {"press": "btnOK"}])");

        TryMenu(item);

        EXPECT_EQ(Stored(), "1:-10 2:-20 3:-30") << item;
        EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Period <> 3"), "") << item;
    }
}

TEST_F(FreshRowsTest, ASplitUsesTheStoredAmountOrIsRefused)
{
    Grid();
    Move(1, 1);
    OtherSql("UPDATE Trans SET Amount = -60 WHERE Sequence = 3");
    AnswerForm("frmSplit", R"([{"set": "txtNew", "to": "-5"}, {"press": "btnOK"}])");

    const bool done = TryMenu("mnuE_Split")["ok"] == true;

    EXPECT_EQ(Stored(), done ? "1:-10 2:-20 3:-55 3:-5" : "1:-10 2:-20 3:-60");
}

TEST_F(FreshRowsTest, ASplitGetsAPieceNumberThatNoOtherProgramHasGiven)
{
    Grid();
    Move(1, 1);
    Other({"split", "3", "--", "-4"});
    AnswerForm("frmSplit", R"([{"set": "txtNew", "to": "-5"}, {"press": "btnOK"}])");

    Menu("mnuE_Split");

    EXPECT_EQ(Stored(), "1:-10 2:-20 3:-21 3:-4 3:-5");
    EXPECT_EQ(Rows("SELECT SubSequence FROM Trans WHERE Sequence = 3 ORDER BY SubSequence"),
              "[0] [1] [2]");
}

TEST_F(FreshRowsTest, ASecondMoveStartsFromTheMonthWhereTheRowIsNow)
{
    Grid();
    Move(1, 1);
    Other({"move", "--by", "+1", "3"});

    TryMenu("mnuE_MoveNext");

    EXPECT_EQ(RawBook(folder.Path()).Faults(), std::vector<std::string>());
    EXPECT_THAT(StoredCell("Period", 3), testing::AnyOf("4", "5"));
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Period = 3 ORDER BY Sequence"), "[1] [2]");
}

TEST_F(FreshRowsTest, ANewRowGetsItsOwnNumberDuringAnImport)
{
    Edit("new", 2, "Entered");
    Edit("new", 3, "-5");
    Other({"import", Statement("march.ofx", "F1")});
    EXPECT_TRUE(Save());
    Other({"import", Statement("april.ofx", "F2")});
    Edit("new", 3, "-6");
    EXPECT_TRUE(Save());

    EXPECT_EQ(RawBook(folder.Path()).Faults(), std::vector<std::string>());
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Trans"), "[7]");
    EXPECT_EQ(StoredBalance(), "-85");
}

TEST_F(FreshRowsTest, ANewRowIsStoredInItsAccountUnderTheNewNumber)
{
    OtherSql("UPDATE Account SET AccountID = 'B-9' WHERE AccountID = 'B-1'");

    Edit("new", 2, "Entered");
    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());

    EXPECT_EQ(StoredCell("AccountID", 4), "B-9");
    EXPECT_EQ(StoredBalance(), "-65");
}

TEST_F(FreshRowsTest, ATypedRowIsNotStoredUnderANumberThatNoAccountHas)
{
    Edit("new", 2, "Entered");
    Edit("new", 3, "-5");
    OtherSql("UPDATE Account SET AccountID = 'B-9' WHERE AccountID = 'B-1'");

    const Json reply = Try({{"do", "save"}});

    const bool saved = reply["ok"] == true && reply["saved"] == true;
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Trans WHERE AccountID = 'B-1'"), "[0]");
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Trans WHERE AccountID = 'B-9'"), saved ? "[4]" : "[3]");
    EXPECT_EQ(Dirty(), !saved);
}

TEST_F(FreshRowsTest, ADeletedAccountGetsNoNewRows)
{
    OtherSql("DELETE FROM Trans WHERE AccountID = 'B-1'");
    OtherSql("DELETE FROM Account WHERE AccountID = 'B-1'");

    Try({{"do", "edit"}, {"row", "new"}, {"col", 3}, {"text", "-5"}});
    Try({{"do", "save"}});

    EXPECT_EQ(Stored(), "");
}

}  // namespace
}  // namespace clb
