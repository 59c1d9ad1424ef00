// The columns of every view: order, captions and types, and which are hidden, locked or chosen from
// a list.

#include "tests/views/ShownView.h"

namespace clb {
namespace {

/// What one column must be like. Its number is its place in the list.
struct Expected {
    const char* key;
    const char* caption;
    FieldType type;
    const char* marks = "";  ///< from "hidden", "locked", "calculated"
    int position = 0;        ///< where it is shown; 0: at its number
};

struct ViewColumns {
    std::int32_t view;
    const char* totals;
    std::vector<Expected> columns;
};

const ViewColumns kViews[] = {
    {vwNetWorth,
     "Total Net Worth:",
     {{"Description", "Description", FieldType::Text},
      {"Type", "Type", FieldType::Text},
      {"AccountID", "Account #", FieldType::Text},
      {"OpeningBalance", "Opening Balance", FieldType::Money},
      {"TotBalance", "Current Balance", FieldType::Money, "locked"},
      {"Sequence", "Sequence", FieldType::Long, "hidden"}}},
    {vwBudget,
     "Month to date:",
     {{"Category", "Category", FieldType::Text},
      {"Amount", "Budgeted", FieldType::Money},
      {"Sequence", "Sequence", FieldType::Long, "hidden"},
      {"Year", "Year", FieldType::Long, "hidden"},
      {"Period", "Period", FieldType::Long, "hidden"},
      {"CategoryGroup", "Group", FieldType::Text, "", 8},
      {"", "Actual", FieldType::Double, "calculated", 6},
      {"", "Difference", FieldType::Double, "calculated", 7}}},
    {vwAccountType,
     "Totals:",
     {{"Description", "Description", FieldType::Text},
      {"AccountID", "Account #", FieldType::Text},
      {"OpeningBalance", "Opening Balance", FieldType::Money},
      {"TotBalance", "Current Balance", FieldType::Money, "locked"},
      {"Sequence", "Sequence", FieldType::Long, "hidden"},
      {"Type", "Type", FieldType::Text, "hidden"}}},
    {vwAccount,
     "Balance:",
     {{"PostDate", "Date", FieldType::Date},
      {"Description", "Description", FieldType::Text},
      {"Amount", "Amount", FieldType::Money},
      {"CheckID", "Check #", FieldType::Text},
      {"Category", "Category", FieldType::Text},
      {"Notes", "Notes", FieldType::Text},
      {"AccountID", "AccountID", FieldType::Text, "hidden"},
      {"Year", "Year", FieldType::Long, "hidden"},
      {"Period", "Period", FieldType::Long, "hidden"},
      {"FITID", "FITID", FieldType::Text, "hidden"},
      {"Sequence", "Sequence", FieldType::Long, "hidden"},
      {"SubSequence", "SubSequence", FieldType::Long, "hidden"}}},
    {vwInvestment,
     "Total Investment:",
     {{"StockSymbol", "Symbol", FieldType::Text},
      {"StockName", "Name", FieldType::Text},
      {"PurchaseDate", "Purchase Date", FieldType::Date},
      {"Quantity", "Quantity", FieldType::Double},
      {"PurchasePrice", "Purchase Price", FieldType::Money},
      {"LastPrice", "Last Price", FieldType::Money},
      {"Total", "Total", FieldType::Money},
      {"AccountID", "AccountID", FieldType::Text, "hidden"},
      {"Sequence", "Sequence", FieldType::Long, "hidden"}}},
    {vwLoan,
     "Total Loans:",
     {{"Description", "Description", FieldType::Text},
      {"OriginalAmount", "Original Amount", FieldType::Money},
      {"PaidAmount", "Paid Amount", FieldType::Money},
      {"InterestRate", "Interest %", FieldType::Single},
      {"AccountID", "AccountID", FieldType::Text, "hidden"},
      {"Sequence", "Sequence", FieldType::Long, "hidden"},
      {"", "Balance", FieldType::Double, "calculated"}}},
};

class ColumnsTest : public ShownView, public testing::WithParamInterface<ViewColumns> {
protected:
    ColumnsTest() { Show(GetParam().view); }

    void ExpectColumns()
    {
        const std::vector<Expected>& expected = GetParam().columns;
        ASSERT_EQ(Columns().Count(), static_cast<std::int32_t>(expected.size()));
        for (std::int32_t number = 1; number <= Columns().Count(); ++number) {
            const Expected& wanted = expected[static_cast<std::size_t>(number - 1)];
            const std::string marks = wanted.marks;
            const GridColumn& column = Columns().Item(number);
            SCOPED_TRACE(wanted.caption);
            EXPECT_EQ(column.key, wanted.key);
            EXPECT_EQ(column.caption, wanted.caption);
            EXPECT_EQ(column.dataType, wanted.type);
            EXPECT_EQ(Columns().Position(number), wanted.position != 0 ? wanted.position : number);
            EXPECT_EQ(column.hidden, marks == "hidden");
            EXPECT_EQ(column.readOnly, marks == "locked");
            EXPECT_EQ(column.Calculated(), marks == "calculated");
        }
    }
};

TEST_P(ColumnsTest, TheGridHasTheViewsColumns)
{
    ExpectColumns();
}

TEST_P(ColumnsTest, AReloadMakesNoSecondSetOfColumns)
{
    books_.window.View().Refresh();
    Grid().Refetch();

    ExpectColumns();
}

TEST_P(ColumnsTest, CalculatedColumnsAndTheirHeadingsAreAlignedRightAsAmountsAre)
{
    for (std::int32_t number = 1; number <= Columns().Count(); ++number) {
        const GridColumn& column = Columns().Item(number);
        SCOPED_TRACE(column.caption);
        const bool right = column.Calculated() || column.dataType == FieldType::Money;
        EXPECT_EQ(column.alignment == grid_align::kRight, right);
        EXPECT_EQ(column.headingAlignment == grid_align::kRight, right);
    }
}

TEST_P(ColumnsTest, OnlyTypesAndCategoriesAreChosenFromAList)
{
    for (std::int32_t number = 1; number <= Columns().Count(); ++number) {
        const GridColumn& column = Columns().Item(number);
        const bool list = (GetParam().view == vwNetWorth && column.key == "Type") ||
                          (GetParam().view == vwAccount && column.key == "Category");
        EXPECT_EQ(column.popup.has_value(), list) << column.caption;
    }
}

TEST_P(ColumnsTest, TheTotalsLabelNamesTheFigures)
{
    EXPECT_EQ(books_.window.lblTotal.Caption(), GetParam().totals);
}

TEST_P(ColumnsTest, TipsAreOnAndARefreshSwitchesThemOnAgain)
{
    EXPECT_NE(Grid().CellTips(), 0);

    Grid().ShowToolTips(false);
    books_.window.View().Refresh();

    EXPECT_NE(Grid().CellTips(), 0);
}

TEST_P(ColumnsTest, WhatIsLockedHiddenOrCalculatedCannotBeEdited)
{
    Grid().MoveToRowKey(Null{});
    for (std::int32_t number = 1; number <= Columns().Count(); ++number) {
        const GridColumn& column = Columns().Item(number);
        if (!column.readOnly && !column.hidden && !column.Calculated())
            continue;
        Grid().Col(number);
        EXPECT_FALSE(Grid().Editing(true)) << column.caption;
        EXPECT_FALSE(Grid().Dirty());
    }
}

INSTANTIATE_TEST_SUITE_P(EveryView, ColumnsTest, testing::ValuesIn(kViews),
                         [](const testing::TestParamInfo<ViewColumns>& tested) {
                             return "View" + std::to_string(tested.param.view);
                         });

}  // namespace
}  // namespace clb
