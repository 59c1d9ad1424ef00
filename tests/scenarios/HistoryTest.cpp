#include "history/History.h"
#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class HistoryTest : public Scenario {
protected:
    HistoryTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        AddTransaction("B-1", "2006-3", "-9", "Food");
        AddTransaction("B-1", "2006-3", "-1", "Food");
        AddBudget("2006-3", "Food", "300", "Household");
        ShowAll();
    }

    /// What the newest steps were, the newest first.
    std::string Steps()
    {
        std::string steps;
        const Json reply = Do({{"do", "history"}});
        for (const Json& step : reply["steps"])
            steps += (steps.empty() ? "" : ", ") + step["what"].get<std::string>() +
                     (step["undone"] == true ? " (undone)" : "");
        return steps;
    }
    std::string All() { return Rows("SELECT * FROM Trans ORDER BY Sequence, SubSequence"); }
    /// Another program makes a step while this one runs.
    void ImportElsewhere()
    {
        Connection connection;
        connection.Open("Data Source=" + folder.Path() + "/db/clb.mdb");
        History history(
            connection, [] { return *Date::Of(2006, 3, 5); }, "another one");
        history.Begin("SQL");
        connection.Execute("UPDATE Account SET OpeningBalance = 5 WHERE AccountID = 'B-1'");
        connection.Settle();
    }
    Json Line(const std::string& item) { return Window()["menus"][item]; }
};

TEST_F(HistoryTest, ADeletedRowComesBackAndGoesAgain)
{
    Click("Checking");
    const std::string before = All();
    Move(1, 1);
    AnswerBox("Yes");
    Menu("mnuE_Delete");
    const std::string after = All();
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo Delete Record");
    EXPECT_EQ(Line("mnuY_Redo")["enabled"], false);

    Menu("mnuY_Undo");

    EXPECT_EQ(All(), before);
    EXPECT_EQ(RowsOf("data").size(), 2U);
    EXPECT_EQ(Line("mnuY_Redo")["caption"], "&Redo Delete Record");
    Menu("mnuY_Redo");
    EXPECT_EQ(All(), after);
    EXPECT_EQ(RowsOf("data").size(), 1U);
    EXPECT_EQ(Steps().substr(0, 13), "Delete Record");
}

TEST_F(HistoryTest, ASavedRowWithItsBalanceIsOneStep)
{
    Click("Checking");
    const std::string balance = Balance("B-1");
    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());
    EXPECT_NE(Balance("B-1"), balance);
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo New Transaction");
    Menu("mnuY_Undo");
    EXPECT_EQ(Balance("B-1"), balance);
    EXPECT_EQ(RowsOf("data").size(), 2U);
}

TEST_F(HistoryTest, ACommandHasOneNameInMenuAndToolbar)
{
    Click("Checking");
    Move(1, 1);
    AnswerBox("Yes");
    Press("Delete");
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo Delete Record");
}

// Symptom: the tree selected the account, but the grid showed the rows of its later number.
TEST_F(HistoryTest, TheShownAccountGetsItsFormerNumberBack)
{
    AddTransaction("B-2", "2006-3", "-4");
    ShowAll();
    Click("Net Worth");
    Edit(2, 3, "B-3");
    EXPECT_TRUE(Save());
    Click("Savings");
    Menu("mnuY_Undo");
    EXPECT_EQ(Window()["accountID"], "B-2");
    EXPECT_EQ(TreeTexts().find("[Savings]") != std::string::npos, true);
}

// Symptom: the row was brought back, but its column in the register was sought in the holdings.
TEST_F(HistoryTest, ATransactionOfAnAccountThatShowsHoldingsComesBack)
{
    AddAccount("I-1", "Investment", "Depot");
    AddTransaction("I-1", "2006-3", "-4");
    ShowAll();
    Menu("mnuY_Undo");
    Menu("mnuY_Redo");
    EXPECT_EQ(Window()["accountID"], "I-1");
}

TEST_F(HistoryTest, TheRowThatASplitSavesFirstIsAStepOfItsOwn)
{
    Click("Checking");
    Edit(1, 2, "Shop");
    AnswerForm("frmSplit", R"([{"set":"txtNew","to":"-2"},{"press":"btnOK"}])");
    Menu("mnuE_Split");
    EXPECT_EQ(Steps().substr(0, 35), "Split Transaction, Edit Transaction");
}

TEST_F(HistoryTest, SqlAndOperationsAreStepsToo)
{
    Rows("SELECT * FROM Trans");
    const std::string before = Steps();
    Do({{"do", "sql"}, {"text", "UPDATE Trans SET CheckID = '7'"}});
    Do({{"do", "call"}, {"op", "CreateBudgetEntry"}, {"args", {"Fun", 2006, 5, "Household", "7"}}});
    EXPECT_EQ(Steps(), "CreateBudgetEntry, SQL" + (before.empty() ? before : ", " + before));
}

TEST_F(HistoryTest, ANumberOfTheNewestStepsOrOneStepIsListed)
{
    Do({{"do", "sql"}, {"text", "UPDATE Account SET OpeningBalance = 7 WHERE AccountID = 'B-2'"}});
    Do({{"do", "sql"}, {"text", "UPDATE Account SET OpeningBalance = 8 WHERE AccountID = 'B-2'"}});
    const Json all = Do({{"do", "history"}})["steps"];

    const Json newest = Do({{"do", "history"}, {"limit", 2}});
    EXPECT_EQ(ToLine(newest["steps"]), ToLine(Json::array({all[0], all[1]})));
    EXPECT_EQ(ToLine(Do({{"do", "history"}, {"limit", 1000}})["steps"]), ToLine(all));

    const Json one = Do({{"do", "history"}, {"step", all[1]["step"]}});
    ASSERT_EQ(one["steps"].size(), 1U);
    EXPECT_EQ(one["steps"][0]["step"], all[1]["step"]);
    ASSERT_EQ(one["changes"].size(), 1U);
    EXPECT_EQ(one["changes"][0]["table"], "Account");
    EXPECT_EQ(one["changes"][0]["was"]["OpeningBalance"], "0");
    EXPECT_EQ(one["changes"][0]["is"]["OpeningBalance"], "7");
    EXPECT_EQ(one["steps"][0]["changes"], one["changes"]);
}

// The dialog is driven like the others: its steps stand under their day, the newest first.
TEST_F(HistoryTest, TheDialogGoesBackToBeforeAChosenStep)
{
    Click("Checking");
    const std::string before = All();
    Move(1, 1);
    AnswerBox("Yes");
    Menu("mnuE_Delete");
    AnswerForm("frmHistory", R"([{"line":"lstSteps","to":2},{"read":true},{"press":"btnBack"},
                                 {"press":"btnClose"}])");

    Events();
    Menu("mnuY_Show");

    EXPECT_EQ(All(), before);
    Json read;
    for (const Json& event : EventsOf("form"))
        if (event["moment"] == "read")
            read = event["controls"];
    EXPECT_EQ(read["lstSteps"]["chosen"], 2);
    EXPECT_EQ(read["lstSteps"]["lines"][1][1], "Delete Record");
    EXPECT_EQ(read["lblTakes"]["caption"], "Going back to before this takes back 1 step.");
}

// Symptom: the captions named the program's own step until a command had looked at the file, and
// Undo took back the step of the other program.
TEST_F(HistoryTest, TheCaptionsNameAnotherProgramsStepAndUndoTakesWhatTheyName)
{
    Do({{"do", "sql"}, {"text", "UPDATE Account SET OpeningBalance = 7 WHERE AccountID = 'B-2'"}});
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo SQL");
    Events();
    ImportElsewhere();

    const Json reply = Program().Ask({{"do", "menu"}, {"item", "mnuY_Undo"}});

    EXPECT_EQ(reply["ok"], false);
    EXPECT_EQ(reply["error"]["number"], 5);
    EXPECT_EQ(reply["error"]["message"],
              "Nothing was undone, because another program has changed the book meanwhile. Undo "
              "would now take back 'SQL'.");
    EXPECT_EQ(Rows("SELECT OpeningBalance FROM Account ORDER BY AccountID"), R"(["5"] ["7"])");
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo SQL (another program)");
    Menu("mnuY_Undo");
    EXPECT_EQ(Rows("SELECT OpeningBalance FROM Account ORDER BY AccountID"), R"(["100"] ["7"])");
}

TEST_F(HistoryTest, TheWindowIsReportedWithTheCaptionsOfTheMoment)
{
    for (const char* verb : {"window", "history"}) {
        Window();
        Events();
        ImportElsewhere();

        Do({{"do", verb}});

        EXPECT_EQ(EventsOf("refresh").size(), 0U) << verb;
        Menu("mnuY_Undo");
        EXPECT_EQ(Rows("SELECT OpeningBalance FROM Account WHERE AccountID = 'B-1'"), R"(["100"])");
    }
}

// Symptom: what was typed was gone, and an older step was undone as well.
TEST_F(HistoryTest, WhatIsTypedIsSavedBeforeUndoTakesItBack)
{
    Rows("SELECT * FROM Trans");
    Do({{"do", "sql"}, {"text", "UPDATE Account SET OpeningBalance = 7 WHERE AccountID = 'B-2'"}});
    Click("Checking");
    const std::string before = All();
    Edit(1, 2, "Shop");

    Menu("mnuY_Undo");

    EXPECT_EQ(All(), before);
    EXPECT_EQ(Line("mnuY_Undo")["caption"], "&Undo SQL");
    EXPECT_EQ(Line("mnuY_Redo")["caption"], "&Redo Edit Transaction");
}

}  // namespace
}  // namespace clb
