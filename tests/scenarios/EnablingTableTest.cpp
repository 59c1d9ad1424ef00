// Which commands are enabled in every view, for every place where the user can be.

#include <set>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

struct Case {
    const char* name;
    const char* node;
    const char* place;    ///< "row", "new", "editing", "editing new" or a control outside the grid
    const char* enabled;  ///< short names, in the order of the menus
};

std::ostream& operator<<(std::ostream& out, const Case& one)
{
    return out << one.name;
}

const Case kCases[] = {
    {"NetWorthRow", "Net Worth", "row", "Export New Delete"},
    {"NetWorthNew", "Net Worth", "new", ""},
    {"NetWorthEditing", "Net Worth", "editing", "New"},
    {"NetWorthEditingNew", "Net Worth", "editing new", ""},
    {"NetWorthTree", "Net Worth", "TreeView", "Export New"},
    {"NetWorthYear", "Net Worth", "txtYear", "Export New"},
    {"BudgetRow", "Budget", "row", "New Delete"},
    {"BudgetNew", "Budget", "new", ""},
    {"BudgetEditing", "Budget", "editing", "New"},
    {"BudgetEditingNew", "Budget", "editing new", ""},
    {"BudgetTree", "Budget", "TreeView", "New"},
    {"BudgetMonth", "Budget", "cmbPeriod", "New"},
    {"TypeRow", "Bank", "row", "Export New Delete"},
    {"TypeNew", "Bank", "new", ""},
    {"TypeEditing", "Bank", "editing", "New"},
    {"TypeEditingNew", "Bank", "editing new", ""},
    {"TypeTree", "Bank", "TreeView", "Export New"},
    {"RegisterRow", "Checking", "row", "Export New Delete MovePrev MoveNext Split"},
    {"RegisterNew", "Checking", "new", "Export"},
    {"RegisterEditing", "Checking", "editing", "New MovePrev MoveNext Split"},
    {"RegisterEditingNew", "Checking", "editing new", ""},
    {"RegisterTree", "Checking", "TreeView", "Export New"},
    {"RegisterYear", "Checking", "txtYear", "Export New"},
    {"HoldingsRow", "Broker", "row", "New Delete"},
    {"HoldingsNew", "Broker", "new", ""},
    {"HoldingsEditing", "Broker", "editing", "New"},
    {"HoldingsTree", "Broker", "TreeView", "New"},
    {"LoansRow", "House", "row", "New Delete"},
    {"LoansNew", "House", "new", ""},
    {"LoansEditing", "House", "editing", "New"},
    {"LoansTree", "House", "TreeView", "New"},
};

class EnablingTableTest : public Scenario, public testing::WithParamInterface<Case> {
protected:
    EnablingTableTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        AddTransaction("B-1", "2006-3", "-9");
        AddBudget("2006-3", "Food", "1");
        AddHolding("I-1", "ACME", "10");
        AddLoan("L-1", "Mortgage", "100", "10");
        ShowAll();
        Click("Bank");
        Click(GetParam().node);
    }

    void GoTo(const std::string& place)
    {
        if (place == "row")
            Move(DataRow(), 1);
        else if (place == "new")
            Move("new", 1);
        else if (place == "editing")
            Begin(DataRow(), 1);
        else if (place == "editing new")
            Begin("new", 1);
        else
            ASSERT_EQ(Focus(place), place);
    }
    Json DataRow() { return RowsOf("data").at(0)["row"]; }
    static bool Outside(const std::string& place)
    {
        return std::set<std::string>{"TreeView", "txtYear", "cmbPeriod"}.contains(place);
    }
};

TEST_P(EnablingTableTest, CommandsButtonsAndStatusFitThePlace)
{
    GoTo(GetParam().place);

    const Json window = Window();
    std::string enabled;
    for (const char* item :
         {"mnuF_Export", "mnuE_New", "mnuE_Delete", "mnuE_MovePrev", "mnuE_MoveNext", "mnuE_Split"})
        if (window["menus"][item]["enabled"] == true)
            enabled += std::string(enabled.empty() ? "" : " ") + (item + 5);
    EXPECT_EQ(enabled, GetParam().enabled);
    for (const char* item :
         {"mnuF_Import", "mnuF_Print", "mnuF_Exit", "mnuE_Copy", "mnuT_UpdateQuotes",
          "mnuT_Options", "mnuH_HelpTopics", "mnuH_OnTheWeb", "mnuH_OnlineTutorial", "mnuH_About"})
        EXPECT_EQ(window["menus"][item]["enabled"], true) << item;
    for (const char* button : {"Link", "Back", "Forward"})
        EXPECT_EQ(window["toolbar"][button], true) << button;
    EXPECT_EQ(window["toolbar"]["New"], window["menus"]["mnuE_New"]["enabled"]);
    EXPECT_EQ(window["toolbar"]["Delete"], window["menus"]["mnuE_Delete"]["enabled"]);
    EXPECT_EQ(window["status"], Outside(GetParam().place)
                                    ? "Select an item to work with."
                                    : "Double click or press F2 to edit cell content.");
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, EnablingTableTest, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<Case>& tested) {
                             return std::string(tested.param.name);
                         });

class EnablingAfterEditTest : public Scenario {};

TEST_F(EnablingAfterEditTest, WhatAnEditDisablesIsEnabledAgainAfterIt)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-9");
    ShowAll();
    Click("Checking");
    Begin(1, 2);
    EXPECT_EQ(Window()["menus"]["mnuE_Delete"]["enabled"], false);

    Do({{"do", "end"}});

    for (const char* item :
         {"mnuF_Export", "mnuE_New", "mnuE_Delete", "mnuE_MovePrev", "mnuE_MoveNext", "mnuE_Split"})
        EXPECT_EQ(Window()["menus"][item]["enabled"], true) << item;
}

}  // namespace
}  // namespace clb
