// Reading the rows again: by the grid alone, by the view, and each figure by itself.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class RefetchTest : public Scenario {
protected:
    RefetchTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        AddTransaction("B-1", "2006-3", "-9", "Food");
        AddTransaction("B-1", "2006-3", "-1", "Food");
        AddBudget("2006-3", "Food", "300", "Household");
        ShowAll();
    }
};

TEST_F(RefetchTest, ARefetchStopsPaintingAndReturnsToItsCell)
{
    Click("Checking");
    Move(2, 3);
    Events();

    Call("Refetch");

    const std::vector<std::string> story = Story();
    ASSERT_GE(story.size(), 2U);
    EXPECT_EQ(story.front(), "redraw(false)");
    EXPECT_EQ(story.back(), "redraw(true)");
    EXPECT_EQ(Count(story, "refresh"), 0U);
    EXPECT_EQ(Current(), "2/3");
}

TEST_F(RefetchTest, ARefetchDiscardsTheOpenEdit)
{
    Click("Checking");
    Begin(2, 2);

    Call("Refetch");

    EXPECT_EQ(Current(), "2/2");
    EXPECT_EQ(Window()["menus"]["mnuE_Delete"]["enabled"], true);
}

TEST_F(RefetchTest, ARefetchFindsItsRowAtItsNewPlace)
{
    Click("Checking");
    Move(1, 2);
    const Json key = Grid()["rows"][0]["key"];
    Sql("UPDATE Trans SET PostDate = #2001-01-01# WHERE Sequence = " + key.dump());

    Call("Refetch");

    EXPECT_EQ(Grid()["rows"][1]["key"], key);
    EXPECT_EQ(Current(), "2/2");
}

TEST_F(RefetchTest, ARefetchOfAVanishedRowStaysAtItsPlace)
{
    AddTransaction("B-1", "2006-3", "-3");
    Click("Checking");
    Move(2, 2);
    Sql("DELETE FROM Trans WHERE Sequence = " + Grid()["rows"][1]["key"].dump());

    Call("Refetch");

    EXPECT_EQ(RowsOf("data").size(), 2U);
    EXPECT_EQ(Current(), "2/2");
}

TEST_F(RefetchTest, ARefreshStopsPaintingReloadsAndPaintsAgain)
{
    Click("Checking");
    Begin(1, 2);
    Events();

    Call("Refresh");

    const std::vector<std::string> story = Deeds();
    ASSERT_GE(story.size(), 3U);
    EXPECT_EQ(story.front(), "redraw(false)");
    EXPECT_EQ(Count(story, "redraw(true)"), 1U);
    EXPECT_EQ(Count(story, "refresh"), 1U);
    EXPECT_EQ(story[1], "AfterEdit(1,2)");
    EXPECT_EQ(Current(), "1/1");
}

TEST_F(RefetchTest, EveryRowsActualIsFetchedJustBeforeItsDifference)
{
    AddBudget("2006-3", "Rent", "900", "Household");
    Click("Budget");
    Events();

    Grid();

    std::vector<std::string> fetched;
    for (const Json& event : EventsOf("grid"))
        if (event["name"] == "FetchColumnData")
            fetched.push_back(event["args"][0].dump() + "/" + event["args"][1].dump());
    ASSERT_THAT(fetched, testing::IsSupersetOf({"2/7", "2/8", "3/7", "3/8"}));
    for (std::size_t at = 0; at + 1 < fetched.size(); at += 2) {
        EXPECT_EQ(fetched[at].substr(1), "/7");
        EXPECT_EQ(fetched[at + 1], fetched[at].substr(0, 1) + "/8");
    }
}

TEST_F(RefetchTest, AReloadMakesTheFirstDataCellCurrent)
{
    for (const char* node : {"Net Worth", "Bank", "Checking"}) {
        Click(node);
        Move(2, 3);
        Call("Refresh");
        EXPECT_EQ(Current(), "1/1") << node;
    }
    Click("Budget");
    EXPECT_EQ(Current(), "2/1");
}

TEST_F(RefetchTest, AReloadWithoutRowsMakesTheNewRowLineCurrent)
{
    Click("Savings");

    EXPECT_EQ(RowsOf("data").size(), 0U);
    EXPECT_EQ(RowsOf("new").at(0)["row"], 1);
    EXPECT_EQ(Current(), "1/1");

    Press("Forward");
    Click("Budget");
    EXPECT_EQ(Grid()["rows"].size(), 1U);
    EXPECT_EQ(Current(), "1/1");
}

}  // namespace
}  // namespace clb
