// How the columns of a view are described.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class ColumnsTest : public Scenario {};

TEST_F(ColumnsTest, EachColumnIsDescribedWithItsFieldTypeAndPlace)
{
    AddBudget("2006-3", "Food", "300");
    Click("Budget");

    std::string described;
    for (const Json& column : Columns()) {
        for (const char* property :
             {"index", "key", "caption", "type", "position", "hidden", "readOnly", "calculated",
              "alignment", "headingAlignment", "values", "popup"})
            described += ToLine(column[property]) + " ";
        described += "\n";
    }

    EXPECT_EQ(described, R"(1 "Category" "Category" "text" 1 false false false 0 0 null null )"
                         "\n"
                         R"(2 "Amount" "Budgeted" "money" 2 false false false 6 6 null null )"
                         "\n"
                         R"(3 "Sequence" "Sequence" "long" 3 true false false 0 0 null null )"
                         "\n"
                         R"(4 "Year" "Year" "long" 4 true false false 0 0 null null )"
                         "\n"
                         R"(5 "Period" "Period" "long" 5 true false false 0 0 null null )"
                         "\n"
                         R"(6 "CategoryGroup" "Group" "text" 8 false false false 0 0 null null )"
                         "\n"
                         R"(7 "" "Actual" "double" 6 false false true 6 6 null null )"
                         "\n"
                         R"(8 "" "Difference" "double" 7 false false true 6 6 null null )"
                         "\n");
}

TEST_F(ColumnsTest, WhatIsLockedHiddenOrCalculatedCannotBeEdited)
{
    AddBudget("2006-3", "Food", "300");
    EXPECT_EQ(Columns()[4]["readOnly"], true);
    EXPECT_FALSE(Edit("new", 5, "1"));
    Click("Budget");

    for (const int column : {3, 4, 5, 7, 8})
        EXPECT_FALSE(Edit("new", column, "1")) << column;

    EXPECT_EQ(Grid()["dirty"], false);
    EXPECT_EQ(Grid()["editing"], false);
}

TEST_F(ColumnsTest, AccountTypesAreAListOfFiveToChooseFrom)
{
    const Json type = Columns()[1];

    EXPECT_EQ(ToLine(type["values"]),
              R"json(["Bank","Cash","Credit Card","Investment","Loan"])json");
    EXPECT_EQ(type["popup"]["type"], 4);
    EXPECT_EQ(type["popup"]["rows"], 5);
}

TEST_F(ColumnsTest, WithoutAViewTheGridStaysAndTheEnginesErrorIsReported)
{
    EXPECT_NE(ErrorOf({{"do", "call"}, {"op", "ViewSet"}, {"args", {"View", 7}}}), 0);
    EXPECT_EQ(Window()["totals"]["label"], "Total Net Worth:");
}

}  // namespace
}  // namespace clb
