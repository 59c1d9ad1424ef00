// Printing what is shown.

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

using testing::HasSubstr;
using testing::Not;

class PrintTest : public Scenario {
protected:
    std::string Printed()
    {
        Events();
        Do({{"do", "menu"}, {"item", "mnuF_Print"}});
        const auto events = EventsOf("print");
        EXPECT_EQ(events.size(), 1U);
        if (events.empty())
            return {};
        EXPECT_EQ(events[0]["file"], folder.Path() + "/print.html");
        return events[0]["html"];
    }
};

TEST_F(PrintTest, ARegisterIsPrintedWithItsMonthAndBalance)
{
    AddAccount("1", "Bank", "Tom & Ann");
    AddTransaction("1", "2006-3", "-45.5");
    ShowAll();
    Click("Tom & Ann");

    const std::string html = Printed();

    EXPECT_THAT(html, HasSubstr("<h1>Tom &amp; Ann</h1>"));
    EXPECT_THAT(html, HasSubstr("March 2006"));
    EXPECT_THAT(html, HasSubstr("<th align=\"left\">Check #</th>"));
    EXPECT_THAT(html, HasSubstr("<td>2006-03-15</td><td>Shop</td>"));
    EXPECT_THAT(html, HasSubstr(">Balance:</td>"));
    EXPECT_THAT(html, Not(HasSubstr("FITID"))) << "hidden columns stay hidden";
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "/print.html"));
}

TEST_F(PrintTest, ABudgetIsPrintedWithItsGroupsAndActuals)
{
    AddAccount("1", "Bank", "Checking");
    AddTransaction("1", "2006-3", "-45.5", "Food");
    AddBudget("2006-3", "Food", "-60", "Living");
    ShowAll();
    Click("Budget");

    const std::string html = Printed();

    EXPECT_THAT(html, HasSubstr(">Living (1 items)</td>"));
    EXPECT_THAT(html, HasSubstr("-45.50</td><td align=\"right\">14.50</td><td>Living</td>"));
    EXPECT_THAT(html, HasSubstr(">Total (budgeted/actual): -$60.00 / -$45.50</td>"));
    EXPECT_THAT(html, HasSubstr(">Month to date:</td>"));
}

TEST_F(PrintTest, TheNetWorthHasNoMonthAndBothTotals)
{
    AddAccount("1", "Bank", "Checking", "100");
    ShowAll();

    const std::string html = Printed();

    EXPECT_THAT(html, HasSubstr("<h1>Net Worth</h1>\n<table"));
    EXPECT_THAT(html, HasSubstr(">Total Net Worth:</td><td class=\"total\" align=\"right\">100.00"
                                "</td><td class=\"total\" align=\"right\">100.00</td>"));
}

TEST_F(PrintTest, AFolderThatCannotHoldTheFileIsAnError)
{
    Window();
    std::filesystem::create_directory(folder.Path() + "/print.html");

    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuF_Print"}}), 75);

    EXPECT_TRUE(EventsOf("print").empty());
}

}  // namespace
}  // namespace clb
