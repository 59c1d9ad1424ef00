// What happens when the user goes on to something else while the row has unsaved changes.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class UnsavedRowsTest : public Scenario {
protected:
    UnsavedRowsTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
    }

    void TypeAccount(const std::string& name, const std::string& type, const std::string& number)
    {
        Edit("new", 1, name);
        Edit("new", 2, type);
        Edit("new", 3, number);
    }
    std::string Caption() { return Window()["caption"]; }
};

// Symptom: the saved account moved the nodes below it, and the node above the clicked one was
// shown.
TEST_F(UnsavedRowsTest, AClickShowsItsNodeEvenIfTheSavedAccountMovedTheNodes)
{
    TypeAccount("Abroad", "Bank", "B-0");

    Click("House");

    EXPECT_EQ(Caption(), "House - Corvane Ledgerbook");
    EXPECT_EQ(Window()["view"], 6);
    EXPECT_EQ(Window()["accountID"], "L-1");
    for (const Json& node : Tree())
        EXPECT_EQ(node["selected"], node["text"] == "House") << ToLine(node);
}

TEST_F(UnsavedRowsTest, AClickOnATypeShowsItEvenIfTheNodesMoved)
{
    TypeAccount("Abroad", "Bank", "B-0");

    Click("Loan");

    EXPECT_EQ(Caption(), "Loan - Corvane Ledgerbook");
    EXPECT_EQ(Window()["view"], 3);
    EXPECT_EQ(Window()["accountType"], "Loan");
}

TEST_F(UnsavedRowsTest, AClickOnTheAccountWhoseNumberWasChangedShowsIt)
{
    Edit(1, 3, "B-9");

    Click("Checking");

    EXPECT_EQ(Caption(), "Checking - Corvane Ledgerbook");
    EXPECT_EQ(Window()["accountID"], "B-9");
}

TEST_F(UnsavedRowsTest, AClickOnTheAccountWhoseTypeWasChangedShowsIt)
{
    Edit(1, 2, "Loan");

    Click("Checking");

    EXPECT_EQ(Caption(), "Checking - Corvane Ledgerbook");
    EXPECT_EQ(Window()["accountID"], "B-1");
    EXPECT_EQ(Window()["view"], 6);
}

TEST_F(UnsavedRowsTest, AClickOnATypeThatDisappearsWithItsLastAccountShowsNothingElse)
{
    Edit(3, 2, "Bank");

    EXPECT_EQ(Do({{"do", "click"}, {"text", "Loan"}})["clicked"], false);

    EXPECT_EQ(Window()["focus"], "TreeView");
    EXPECT_EQ(Window()["view"], 1);
    EXPECT_EQ(Caption(), "Net Worth - Corvane Ledgerbook");
}

TEST_F(UnsavedRowsTest, ANewRecordSavesTheRowFirst)
{
    Edit(1, 1, "Current");

    Menu("mnuE_New");

    EXPECT_EQ(Rows("SELECT Description FROM Account WHERE AccountID = 'B-1'"), R"(["Current"])");
    EXPECT_EQ(Current(), "4/1 editing");
}

// Symptom: the current cell moved to column 1, away from the cell to correct.
TEST_F(UnsavedRowsTest, ANewRecordIsNotBegunWhenTheRowIsRefused)
{
    Edit(1, 3, "");
    Events();

    Menu("mnuE_New");

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0]["text"], "Please enter an account #.");
    EXPECT_EQ(Current(), "1/3 editing dirty");
}

// Symptom: the node was looked up by the typed number, and stayed in the tree.
TEST_F(UnsavedRowsTest, ADeletedAccountsNodeIsRemovedEvenIfItsNumberWasTypedOver)
{
    Edit(1, 3, "B-2");
    AnswerBox("Yes");

    Menu("mnuE_Delete");

    EXPECT_EQ(Rows("SELECT AccountID FROM Account ORDER BY Sequence"), R"(["B-2"] ["L-1"])");
    std::string texts;
    for (const Json& node : Tree())
        texts += node["text"].get<std::string>() + " ";
    EXPECT_EQ(texts, "Net Worth Budget Bank Savings Loan House ");
}

TEST_F(UnsavedRowsTest, ADeletedAccountsNodeIsRemovedEvenIfChangesWereDiscarded)
{
    Click("Bank");
    Edit(1, 2, "B-9");
    Escape();
    AnswerBox("Yes");

    Menu("mnuE_Delete");

    std::string texts;
    for (const Json& node : Tree())
        texts += node["text"].get<std::string>() + " ";
    EXPECT_EQ(texts, "Net Worth Budget Bank Savings Loan House ");
}

TEST_F(UnsavedRowsTest, AnotherMonthSavesTheRowFirst)
{
    AddTransaction("B-1", "2006-3", "-9");
    Click("Checking");
    Edit(1, 3, "-10");

    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 4}});

    EXPECT_EQ(Rows("SELECT Amount, Period FROM Trans"), R"(["-10",3])");
    EXPECT_EQ(Window()["period"], 4);
}

TEST_F(UnsavedRowsTest, TheOtherMonthsButtonSavesTheRowFirst)
{
    AddTransaction("B-1", "2006-3", "-9");
    Click("Checking");
    Edit(1, 3, "-10");

    Press("Forward");

    EXPECT_EQ(Rows("SELECT Amount, Period FROM Trans"), R"(["-10",3])");
    EXPECT_EQ(Window()["period"], 4);
}

// Symptom: what was typed for a new line overwrote a stored one.
TEST_F(UnsavedRowsTest, TheNewRowLineIsMeantEvenIfTheSavedLineChangedItsGroup)
{
    AddBudget("2006-3", "Bus", "1", "A");
    AddBudget("2006-3", "Food", "1", "A");
    AddBudget("2006-3", "Rent", "1", "B");
    Click("Budget");
    Edit(2, 6, "C");

    Edit("new", 1, "Water");
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Category FROM Budget ORDER BY Sequence"),
              R"(["Bus"] ["Food"] ["Rent"] ["Water"])");
}

TEST_F(UnsavedRowsTest, TheClickedLineIsMeantEvenIfTheSavedLineMovedTheLines)
{
    AddBudget("2006-3", "Food", "1", "A");
    AddBudget("2006-3", "Rent", "1", "B");
    Click("Budget");
    Edit("new", 1, "Bus");
    Edit("new", 6, "A");

    EXPECT_TRUE(Move(5, 2));

    EXPECT_EQ(Call("ColumnValue", {1}), "Rent");
    EXPECT_EQ(Current(), "6/2");
}

TEST_F(UnsavedRowsTest, ANewRecordOpensTheNewRowLineEvenIfTheSavedLineMovedIt)
{
    AddBudget("2006-3", "Bus", "1", "A");
    AddBudget("2006-3", "Food", "1", "A");
    Click("Budget");
    Edit(2, 6, "C");

    Menu("mnuE_New");

    EXPECT_EQ(Current(), RowsOf("new").at(0)["row"].dump() + "/1 editing");
}

TEST_F(UnsavedRowsTest, ADiscardedRowIsTheViewsAccountAsItIsStored)
{
    Edit(1, 3, "B-9");
    Edit(1, 2, "Loan");

    Escape();

    EXPECT_EQ(Window()["accountID"], "B-1");
    EXPECT_EQ(Window()["menus"]["mnuF_Export"]["enabled"], true);
}

}  // namespace
}  // namespace clb
