// The columns of every view: order, captions and types, and which are hidden, locked or chosen from
// a list.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

/// What one column must be like. Its number is its place in the list.
struct Expected {
    const char* key;
    const char* caption;
    const char* type;
    const char* marks = "";  ///< from "hidden", "locked", "calculated"
    int position = 0;        ///< where it is shown; 0: at its number
};

struct ViewColumns {
    const char* node;
    int view;
    const char* totals;
    std::vector<Expected> columns;
};

std::ostream& operator<<(std::ostream& out, const ViewColumns& view)
{
    return out << view.node;
}

const ViewColumns kViews[] = {
    {"Net Worth",
     1,
     "Total Net Worth:",
     {{"Description", "Description", "text"},
      {"Type", "Type", "text"},
      {"AccountID", "Account #", "text"},
      {"OpeningBalance", "Opening Balance", "money"},
      {"TotBalance", "Current Balance", "money", "locked"},
      {"Sequence", "Sequence", "long", "hidden"}}},
    {"Budget",
     2,
     "Month to date:",
     {{"Category", "Category", "text"},
      {"Amount", "Budgeted", "money"},
      {"Sequence", "Sequence", "long", "hidden"},
      {"Year", "Year", "long", "hidden"},
      {"Period", "Period", "long", "hidden"},
      {"CategoryGroup", "Group", "text", "", 8},
      {"", "Actual", "double", "calculated", 6},
      {"", "Difference", "double", "calculated", 7}}},
    {"Bank",
     3,
     "Totals:",
     {{"Description", "Description", "text"},
      {"AccountID", "Account #", "text"},
      {"OpeningBalance", "Opening Balance", "money"},
      {"TotBalance", "Current Balance", "money", "locked"},
      {"Sequence", "Sequence", "long", "hidden"},
      {"Type", "Type", "text", "hidden"}}},
    {"Checking",
     4,
     "Balance:",
     {{"PostDate", "Date", "date"},
      {"Description", "Description", "text"},
      {"Amount", "Amount", "money"},
      {"CheckID", "Check #", "text"},
      {"Category", "Category", "text"},
      {"Notes", "Notes", "text"},
      {"AccountID", "AccountID", "text", "hidden"},
      {"Year", "Year", "long", "hidden"},
      {"Period", "Period", "long", "hidden"},
      {"FITID", "FITID", "text", "hidden"},
      {"Sequence", "Sequence", "long", "hidden"},
      {"SubSequence", "SubSequence", "long", "hidden"}}},
    {"Broker",
     5,
     "Total Investment:",
     {{"StockSymbol", "Symbol", "text"},
      {"StockName", "Name", "text"},
      {"PurchaseDate", "Purchase Date", "date"},
      {"Quantity", "Quantity", "double"},
      {"PurchasePrice", "Purchase Price", "money"},
      {"LastPrice", "Last Price", "money"},
      {"Total", "Total", "money"},
      {"AccountID", "AccountID", "text", "hidden"},
      {"Sequence", "Sequence", "long", "hidden"}}},
    {"House",
     6,
     "Total Loans:",
     {{"Description", "Description", "text"},
      {"OriginalAmount", "Original Amount", "money"},
      {"PaidAmount", "Paid Amount", "money"},
      {"InterestRate", "Interest %", "single"},
      {"AccountID", "AccountID", "text", "hidden"},
      {"Sequence", "Sequence", "long", "hidden"},
      {"", "Balance", "double", "calculated"}}},
};

class ColumnsTest : public Scenario, public testing::WithParamInterface<ViewColumns> {
protected:
    ColumnsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
        Click(GetParam().node);
    }
};

TEST_P(ColumnsTest, TheGridHasTheViewsColumns)
{
    const std::vector<Expected>& expected = GetParam().columns;
    const Json columns = Columns();

    ASSERT_EQ(columns.size(), expected.size());
    for (std::size_t at = 0; at < expected.size(); ++at) {
        const Json& column = columns[at];
        const Expected& wanted = expected[at];
        const std::string marks = wanted.marks;
        const int number = static_cast<int>(at) + 1;
        SCOPED_TRACE(wanted.caption);
        EXPECT_EQ(column["index"], number);
        EXPECT_EQ(column["key"], wanted.key);
        EXPECT_EQ(column["caption"], wanted.caption);
        EXPECT_EQ(column["type"], wanted.type);
        EXPECT_EQ(column["position"], wanted.position != 0 ? wanted.position : number);
        EXPECT_EQ(column["hidden"], marks == "hidden");
        EXPECT_EQ(column["readOnly"], marks == "locked");
        EXPECT_EQ(column["calculated"], marks == "calculated");
    }
}

TEST_P(ColumnsTest, CalculatedColumnsAndTheirHeadingsAreAlignedRightAsAmountsAre)
{
    for (const Json& column : Columns()) {
        SCOPED_TRACE(ToLine(column["caption"]));
        const bool right = column["calculated"] == true || column["type"] == "money";
        EXPECT_EQ(column["alignment"] == 6, right);
        EXPECT_EQ(column["headingAlignment"] == 6, right);
    }
}

TEST_P(ColumnsTest, OnlyTypesAndCategoriesAreChosenFromAList)
{
    for (const Json& column : Columns()) {
        SCOPED_TRACE(ToLine(column["caption"]));
        const bool list = (GetParam().view == 1 && column["key"] == "Type") ||
                          (GetParam().view == 4 && column["key"] == "Category");
        EXPECT_EQ(column["popup"].is_null(), !list);
        EXPECT_EQ(column["values"].is_null(), !list);
    }
}

TEST_P(ColumnsTest, TheTotalsLabelNamesTheFigures)
{
    EXPECT_EQ(Window()["totals"]["label"], GetParam().totals);
    EXPECT_EQ(Window()["view"], GetParam().view);
}

TEST_P(ColumnsTest, TipsAreOnAndARefreshSwitchesThemOnAgain)
{
    EXPECT_EQ(Grid()["showToolTips"], true);

    Call("ShowToolTips", {false});
    EXPECT_EQ(Grid()["showToolTips"], false);

    Call("Refresh");
    EXPECT_EQ(Grid()["showToolTips"], true);
}

TEST_P(ColumnsTest, AReloadMakesNoSecondSetOfColumns)
{
    const Json before = Columns();

    Call("Refresh");
    Call("Refetch");

    EXPECT_EQ(ToLine(Columns()), ToLine(before));
}

TEST_P(ColumnsTest, WhatIsLockedHiddenOrCalculatedCannotBeEdited)
{
    for (const Json& column : Columns()) {
        const bool closed =
            column["readOnly"] == true || column["hidden"] == true || column["calculated"] == true;
        if (!closed)
            continue;
        EXPECT_FALSE(Edit("new", column["index"], "1")) << ToLine(column);
        EXPECT_EQ(Grid()["dirty"], false);
        EXPECT_EQ(Grid()["editing"], false);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryView, ColumnsTest, testing::ValuesIn(kViews),
                         [](const testing::TestParamInfo<ViewColumns>& tested) {
                             return "View" + std::to_string(tested.param.view);
                         });

class ColumnListsTest : public Scenario {};

TEST_F(ColumnListsTest, AccountTypesAreAListOfFiveToChooseFrom)
{
    const Json type = Columns()[1];

    EXPECT_EQ(ToLine(type["values"]),
              R"json(["Bank","Cash","Credit Card","Investment","Loan"])json");
    EXPECT_EQ(type["popup"]["type"], 4);
    EXPECT_EQ(type["popup"]["rows"], 5);
}

TEST_F(ColumnListsTest, WithoutAViewTheGridStaysAndTheEnginesErrorIsReported)
{
    EXPECT_NE(ErrorOf({{"do", "call"}, {"op", "ViewSet"}, {"args", {"View", 7}}}), 0);
    EXPECT_EQ(Window()["totals"]["label"], "Total Net Worth:");
}

}  // namespace
}  // namespace clb
