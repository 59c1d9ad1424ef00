// Choosing and stepping the month shown.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class MonthTest : public Scenario {
protected:
    /// Month list and year box, and the month that the view shows.
    std::string Shown()
    {
        const Json window = Window();
        return ToLine(Json::array({window["period"], window["year"], Call("ViewGet", {"Period"}),
                                   Call("ViewGet", {"Year"})}));
    }
    std::size_t Refreshes() { return EventsOf("refresh").size(); }
};

TEST_F(MonthTest, ForwardFromDecemberShowsJanuaryOfTheNextYear)
{
    now = "2005-12-31T23:59:59";
    Events();

    Press("Forward");

    EXPECT_EQ(Shown(), R"json([1,"2006",1,2006])json");
    EXPECT_EQ(Refreshes(), 1U);
}

TEST_F(MonthTest, BackFromJanuaryShowsDecemberOfTheYearBefore)
{
    now = "2006-01-01T00:00:00";
    Events();

    Press("Back");

    EXPECT_EQ(Shown(), R"json([12,"2005",12,2005])json");
    EXPECT_EQ(Refreshes(), 1U);
}

TEST_F(MonthTest, StepsWithinAYearLeaveTheYear)
{
    Press("Back");
    EXPECT_EQ(Shown(), R"json([2,"2006",2,2006])json");

    Press("Forward");
    Press("Forward");
    EXPECT_EQ(Shown(), R"json([4,"2006",4,2006])json");
}

TEST_F(MonthTest, TheMonthListAndTheYearBoxChooseTheMonth)
{
    Events();

    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 11}});
    EXPECT_EQ(Refreshes(), 1U);
    Do({{"do", "set"}, {"control", "txtYear"}, {"to", "2004"}});
    EXPECT_EQ(Refreshes(), 1U);

    EXPECT_EQ(Shown(), R"json([11,"2004",11,2004])json");
}

TEST_F(MonthTest, TheSameMonthAgainStillReloads)
{
    Events();

    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 3}});
    EXPECT_EQ(Refreshes(), 1U);

    SetView("Period", 3);
    EXPECT_EQ(Refreshes(), 1U);
}

TEST_F(MonthTest, TheSpinnerStepsTheYear)
{
    Do({{"do", "set"}, {"control", "UpDown"}, {"to", 1}});
    EXPECT_EQ(Shown(), R"json([3,"2007",3,2007])json");

    Do({{"do", "set"}, {"control", "UpDown"}, {"to", -1}});
    EXPECT_EQ(Shown(), R"json([3,"2006",3,2006])json");
}

TEST_F(MonthTest, AYearThatIsNotANumberIsARuntimeErrorAndTheTextStays)
{
    EXPECT_EQ(ErrorOf({{"do", "set"}, {"control", "txtYear"}, {"to", "next"}}), 13);

    EXPECT_EQ(Shown(), R"json([3,"next",3,2006])json");

    Do({{"do", "set"}, {"control", "txtYear"}, {"to", "2007"}});
    EXPECT_EQ(Shown(), R"json([3,"2007",3,2007])json");
}

TEST_F(MonthTest, NoYearFollowsTheLastOne)
{
    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 12}});
    Do({{"do", "set"}, {"control", "txtYear"}, {"to", "2147483647"}});

    // Symptom: it showed January of the very first year.
    EXPECT_EQ(ErrorOf({{"do", "toolbar"}, {"button", "Forward"}}), 6);

    EXPECT_EQ(Window()["period"], 1);
    EXPECT_EQ(Call("ViewGet", {"Year"}), 2147483647);
}

TEST_F(MonthTest, AYearThatIsNotANumberCountsAsZeroWhenItIsStepped)
{
    Do({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 12}});
    ErrorOf({{"do", "set"}, {"control", "txtYear"}, {"to", "next"}});

    Press("Forward");

    EXPECT_EQ(Shown(), R"json([1,"1",1,1])json");
}

TEST_F(MonthTest, WhileRefreshesAreHeldNothingReloads)
{
    Events();

    SetView("HoldRefresh", true);
    SetView("View", 2);
    SetView("Period", 5);
    SetView("Year", 2001);
    EXPECT_EQ(Refreshes(), 0U);

    SetView("HoldRefresh", false);
    EXPECT_EQ(Refreshes(), 1U);
    SetView("HoldRefresh", false);
    EXPECT_EQ(Refreshes(), 1U);
}

TEST_F(MonthTest, WritingAccountAndTypeDoesNotReload)
{
    Events();

    SetView("AccountType", "Cash");
    SetView("AccountID", "12-34");

    EXPECT_EQ(Refreshes(), 0U);
    EXPECT_EQ(Call("ViewGet", {"AccountType"}), "Cash");
    EXPECT_EQ(Call("ViewGet", {"AccountID"}), "12-34");
}

}  // namespace
}  // namespace clb
