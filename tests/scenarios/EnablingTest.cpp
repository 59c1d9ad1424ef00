// Which commands are enabled, and what the status bar says.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class EnablingTest : public Scenario {
protected:
    EnablingTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        AddTransaction("B-1", "2006-3", "-9");
        AddBudget("2006-3", "Food", "1");
        Call("BuildTree");
        Call("Refresh");
    }

    /// Short names of the enabled commands, among those that depend on the selection.
    std::string Enabled()
    {
        const Json menus = Window()["menus"];
        std::string names;
        for (const char* name : {"mnuE_New", "mnuE_Delete", "mnuE_MovePrev", "mnuE_MoveNext",
                                 "mnuE_Split", "mnuF_Export"})
            if (menus[name]["enabled"] == true)
                names += std::string(names.empty() ? "" : " ") + (name + 5);
        return names;
    }
    void FocusGrid() { Do({{"do", "focus"}, {"control", "Grid"}}); }
};

TEST_F(EnablingTest, InTheTreeOnlyNewIsOffered)
{
    Click("Budget");

    EXPECT_EQ(Enabled(), "New");
    const Json window = Window();
    EXPECT_EQ(ToLine(window["toolbar"]),
              R"json({"New":true,"Delete":false,"Link":true,"Back":true,"Forward":true})json");
    EXPECT_EQ(window["status"], "Select an item to work with.");
}

TEST_F(EnablingTest, OnATransactionEverythingIsOffered)
{
    Click("Checking");
    FocusGrid();

    EXPECT_EQ(Enabled(), "New Delete MovePrev MoveNext Split Export");
    EXPECT_EQ(Window()["status"], "Double click or press F2 to edit cell content.");
}

TEST_F(EnablingTest, OnTheNewRowLineNewAndDeleteAreNotOffered)
{
    Click("Checking");
    Do({{"do", "move"}, {"row", "new"}, {"col", 1}});

    EXPECT_EQ(Enabled(), "Export");
    const Json window = Window();
    EXPECT_EQ(window["toolbar"]["New"], false);
    EXPECT_EQ(window["toolbar"]["Delete"], false);
    EXPECT_EQ(window["status"], "Double click or press F2 to edit cell content.");
}

TEST_F(EnablingTest, WhileACellIsEditedDeleteAndExportAreNotOffered)
{
    Click("Checking");
    Do({{"do", "begin"}, {"row", 1}, {"col", 2}});

    EXPECT_EQ(Enabled(), "New MovePrev MoveNext Split");

    Do({{"do", "end"}});
    EXPECT_EQ(Enabled(), "New Delete MovePrev MoveNext Split Export");
}

TEST_F(EnablingTest, ABudgetHoldingsAndLoansAreNeverExported)
{
    for (const char* node : {"Budget", "Broker", "House"}) {
        Click("Checking");
        Click(node);
        FocusGrid();
        EXPECT_EQ(Window()["menus"]["mnuF_Export"]["enabled"], false) << node;
    }
}

TEST_F(EnablingTest, TheNetWorthExportsTheAccountOfTheRow)
{
    Do({{"do", "move"}, {"row", 1}, {"col", 1}});
    EXPECT_EQ(Enabled(), "New Delete Export");
    EXPECT_EQ(Window()["accountID"], "B-1");

    Do({{"do", "move"}, {"row", 2}, {"col", 1}});
    EXPECT_EQ(Enabled(), "New Delete");
    EXPECT_EQ(Window()["accountID"], "I-1");
    EXPECT_EQ(Window()["accountType"], "Investment");
}

TEST_F(EnablingTest, ADisabledCommandIsAnErrorAndDoesNothing)
{
    Click("Checking");

    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuE_Delete"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "toolbar"}, {"button", "Delete"}}), 0);

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), "[1]");
}

}  // namespace
}  // namespace clb
