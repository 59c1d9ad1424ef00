// Editing cells and saving rows.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class EditTest : public Scenario {
protected:
    EditTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        ShowAll();
    }

    std::string Accounts()
    {
        return Rows("SELECT Description, OpeningBalance FROM Account ORDER BY Sequence");
    }
};

TEST_F(EditTest, AnEditedRowStaysUnsavedUntilItIsSaved)
{
    EXPECT_TRUE(Edit(1, 4, "250.75"));

    EXPECT_EQ(Grid()["dirty"], true);
    EXPECT_EQ(Accounts(), R"(["Checking","100"] ["Savings","0"])");

    EXPECT_TRUE(Save());
    EXPECT_EQ(Grid()["dirty"], false);
    EXPECT_EQ(Accounts(), R"(["Checking","250.75"] ["Savings","0"])");
}

TEST_F(EditTest, LeavingAChangedRowSavesIt)
{
    Edit(1, 1, "Current");

    EXPECT_EQ(Do({{"do", "move"}, {"row", 2}, {"col", 1}})["moved"], true);

    EXPECT_EQ(Accounts(), R"(["Current","100"] ["Savings","0"])");
}

TEST_F(EditTest, WhatCannotBeEditedIsRefused)
{
    EXPECT_FALSE(Edit(1, 5, "1"));
    EXPECT_FALSE(Edit(1, 4, "much"));

    EXPECT_EQ(Grid()["dirty"], false);
    EXPECT_EQ(Grid()["editing"], false);
}

TEST_F(EditTest, ACellStaysInEditModeBetweenBeginAndEnd)
{
    Do({{"do", "begin"}, {"row", 1}, {"col", 1}});
    EXPECT_EQ(Grid()["editing"], true);
    EXPECT_EQ(Window()["focus"], "Grid");

    Do({{"do", "end"}});
    EXPECT_EQ(Grid()["editing"], false);
}

TEST_F(EditTest, EscapeDiscardsTheRowsChanges)
{
    Edit(1, 1, "Current");

    Do({{"do", "escape"}});

    EXPECT_EQ(Grid()["dirty"], false);
    EXPECT_EQ(Grid()["rows"][0]["values"][0], "Checking");
}

TEST_F(EditTest, ANewAccountIsSavedAndShownInTheTree)
{
    Edit("new", 1, "Wallet");
    Edit("new", 2, "Cash");
    Edit("new", 3, "C-1");
    Events();

    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT AccountID, Type, OpeningBalance FROM Account WHERE Sequence = 3"),
              R"(["C-1","Cash","0"])");
    EXPECT_EQ(Tree().back()["text"], "Wallet");
}

TEST_F(EditTest, EventsAreLoggedAsRaisedBeforeTheirConsequences)
{
    Edit(1, 1, "");
    Events();

    EXPECT_FALSE(Save());

    const Json events = Events();
    ASSERT_GE(events.size(), 2U);
    EXPECT_EQ(ToLine(events[0]), R"({"event":"grid","name":"BeforeUpdate","args":[false]})");
    EXPECT_EQ(events[1]["event"], "box");
    EXPECT_EQ(events[1]["text"], "Please enter an account description.");
    const Json grid = Grid();
    EXPECT_EQ(grid["editing"], true);
    EXPECT_EQ(ToLine(grid["current"]), R"({"row":1,"col":1})");
}

TEST_F(EditTest, ARefusedRowKeepsTheFocusInTheGrid)
{
    Edit(1, 1, "");

    EXPECT_EQ(Do({{"do", "click"}, {"text", "Budget"}})["clicked"], false);
    EXPECT_EQ(Do({{"do", "focus"}, {"control", "TreeView"}})["focus"], "Grid");
    EXPECT_EQ(Do({{"do", "move"}, {"row", 2}, {"col", 1}})["moved"], false);
    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 7}});

    const Json window = Window();
    EXPECT_EQ(window["view"], 1);
    EXPECT_EQ(window["focus"], "Grid");
    EXPECT_EQ(window["period"], 3);
}

TEST_F(EditTest, TipsShowOnDataRowsWhileTheyAreSwitchedOn)
{
    AddBudget("2006-3", "Food", "10");
    AddTransaction("B-1", "2006-3", "-45.5", "Food");
    Click("Budget");
    Events();

    EXPECT_EQ(Do({{"do", "tip"}, {"row", 2}, {"col", 1}})["text"],
              "Number of transactions: 1\r\n\r\nDate: 2006-03-15\r\nDescription: Shop\r\n"
              "Amount: -$45.50");
    EXPECT_EQ(Do({{"do", "tip"}, {"row", 1}, {"col", 1}})["text"], nullptr);
    EXPECT_EQ(EventsOf("grid").size(), 1U);

    Call("ShowToolTips", {false});
    EXPECT_EQ(Do({{"do", "tip"}, {"row", 2}, {"col", 1}})["text"], nullptr);
    EXPECT_EQ(EventsOf("grid").size(), 0U);
}

}  // namespace
}  // namespace clb
