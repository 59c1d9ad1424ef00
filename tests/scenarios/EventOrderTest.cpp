// What the grid raises while rows are edited and deleted, and how the window reacts.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

using testing::ElementsAre;

class EventOrderTest : public Scenario {
protected:
    EventOrderTest()
    {
        AddAccount("B-1", "Bank", "Checking", "100");
        AddAccount("B-2", "Bank", "Savings");
        AddTransaction("B-1", "2006-3", "-9", "Food");
        AddTransaction("B-1", "2006-3", "-1", "Food");
        AddBudget("2006-3", "Food", "300", "Household");
        ShowAll();
    }

    /// Place of the first such event; past the end if there is none.
    static std::size_t Place(const std::vector<std::string>& story, const std::string& event)
    {
        return static_cast<std::size_t>(std::find(story.begin(), story.end(), event) -
                                        story.begin());
    }
};

TEST_F(EventOrderTest, AnEditIsRaisedBeforeAndAfterWithItsCell)
{
    Move(2, 1);
    Events();

    Begin(2, 3);
    EXPECT_THAT(Story(), ElementsAre("RowColChange(2,3)", "BeforeEdit(2,3,0,false)"));
    Do({{"do", "end"}});
    EXPECT_THAT(Story(), ElementsAre("AfterEdit(2,3)"));
}

TEST_F(EventOrderTest, ASavedAccountIsFollowedByTheTree)
{
    Edit(1, 1, "Current");
    Events();

    EXPECT_TRUE(Save());

    EXPECT_THAT(Story(), ElementsAre("BeforeUpdate(false)", "AfterUpdate()", "tree"));
}

TEST_F(EventOrderTest, ASavedTransactionDoesNotRebuildTheTree)
{
    Click("Checking");
    Edit(1, 2, "Baker");
    Events();

    EXPECT_TRUE(Save());

    EXPECT_THAT(Story(), ElementsAre("BeforeUpdate(false)", "AfterUpdate()"));
}

TEST_F(EventOrderTest, ARowWithoutChangesIsNotUpdated)
{
    Move(1, 1);
    Events();

    EXPECT_TRUE(Save());

    EXPECT_THAT(Story(), ElementsAre());
}

TEST_F(EventOrderTest, ARefusedRowIsReportedOnceAndThenItsCellIsInEdit)
{
    Edit(1, 3, "");
    Move(1, 1);
    Events();

    EXPECT_FALSE(Save());

    const std::vector<std::string> story = Story();
    ASSERT_GE(story.size(), 3U);
    EXPECT_EQ(story[0], "BeforeUpdate(false)");
    EXPECT_EQ(story[1], "box(Please enter an account #.)");
    EXPECT_EQ(story.back(), "BeforeEdit(1,3,0,false)");
    EXPECT_EQ(Count(story, "box(Please enter an account #.)"), 1U);
    EXPECT_EQ(Count(story, "BeforeUpdate(false)"), 1U);
    EXPECT_EQ(Count(story, "AfterUpdate()"), 0U);
    EXPECT_EQ(Count(story, "tree"), 0U);
    EXPECT_EQ(Current(), "1/3 editing dirty");
}

TEST_F(EventOrderTest, DuringTheCheckTheColumnStaysWhereTheUserWas)
{
    Edit(1, 3, "");
    Move(1, 1);
    Events();

    Save();

    // The refused row first goes back into edit where the user was; only then the cell to correct
    // becomes current.
    const std::vector<std::string> story = Story();
    const std::size_t box = Place(story, "box(Please enter an account #.)");
    const std::size_t edit = Place(story, "BeforeEdit(1,1,0,false)");
    const std::size_t moved = Place(story, "RowColChange(1,3)");
    EXPECT_LT(box, edit);
    EXPECT_LT(edit, moved);
    EXPECT_LT(moved, story.size());
}

TEST_F(EventOrderTest, MovingAwayFromAChangedRowSavesItFirst)
{
    Edit(1, 1, "Current");
    Events();

    EXPECT_TRUE(Move(2, 1));

    EXPECT_THAT(Story(),
                ElementsAre("BeforeUpdate(false)", "AfterUpdate()", "tree", "RowColChange(2,1)"));
}

TEST_F(EventOrderTest, MovingWithinARowSavesNothing)
{
    Edit(1, 1, "Current");
    Events();

    EXPECT_TRUE(Move(1, 4));

    EXPECT_THAT(Story(), ElementsAre("RowColChange(1,4)"));
    EXPECT_EQ(Current(), "1/4 dirty");
}

TEST_F(EventOrderTest, LeavingTheGridSavesTheRowAndThenReportsTheNewPlace)
{
    Edit(1, 1, "Current");
    Events();

    EXPECT_EQ(Focus("TreeView"), "TreeView");

    EXPECT_THAT(Story(), ElementsAre("BeforeUpdate(false)", "AfterUpdate()", "tree",
                                     "status(Select an item to work with.)"));
}

TEST_F(EventOrderTest, TheGridReportsItsCellWhenItGetsTheFocus)
{
    Events();

    EXPECT_EQ(Focus("Grid"), "Grid");

    EXPECT_THAT(Story(),
                testing::UnorderedElementsAre(
                    "RowColChange(1,1)", "status(Double click or press F2 to edit cell content.)"));
}

TEST_F(EventOrderTest, AConfirmedDeletionAsksThenDeletesThenShowsTheNode)
{
    Move(2, 1);
    AnswerBox("Yes");
    Events();

    Menu("mnuE_Delete");

    const std::vector<std::string> story = Deeds();
    ASSERT_GE(story.size(), 3U);
    EXPECT_EQ(story[0], "BeforeDelete(false)");
    EXPECT_EQ(story[1], "box(Are you sure you want to delete this record?)");
    EXPECT_EQ(story[2], "AfterDelete()");
    EXPECT_EQ(Count(story, "refresh"), 1U);
    EXPECT_LT(Place(story, "AfterDelete()"), Place(story, "redraw(false)"));
    EXPECT_LT(Place(story, "redraw(false)"), Place(story, "redraw(true)"));
}

TEST_F(EventOrderTest, ADeclinedDeletionEndsWithTheQuestion)
{
    Move(2, 1);
    AnswerBox("No");
    Events();

    Menu("mnuE_Delete");

    EXPECT_THAT(Story(), ElementsAre("BeforeDelete(false)",
                                     "box(Are you sure you want to delete this record?)"));
    EXPECT_EQ(Rows("SELECT AccountID FROM Account ORDER BY Sequence"), R"(["B-1"] ["B-2"])");
    EXPECT_EQ(Current(), "2/1");
}

TEST_F(EventOrderTest, ADeletedTransactionReloadsNothing)
{
    Click("Checking");
    Move(1, 1);
    AnswerBox("Yes");
    Events();

    Press("Delete");

    const std::vector<std::string> story = Story();
    EXPECT_EQ(Count(story, "AfterDelete()"), 1U);
    EXPECT_EQ(Count(story, "refresh"), 0U);
    EXPECT_EQ(Count(story, "tree"), 0U);
}

TEST_F(EventOrderTest, EscapeCancelsTheCellAndAgainTheRow)
{
    Edit(1, 1, "Current");
    Begin(1, 3);
    Events();

    Escape();
    EXPECT_THAT(Story(), ElementsAre("AfterEdit(1,3)"));
    EXPECT_EQ(Current(), "1/3 dirty");
    EXPECT_EQ(Grid()["rows"][0]["values"][0], "Current");

    Escape();
    EXPECT_EQ(Current(), "1/3");
    EXPECT_EQ(Grid()["rows"][0]["values"][0], "Checking");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT Description FROM Account WHERE AccountID = 'B-1'"), R"(["Checking"])");
}

TEST_F(EventOrderTest, EscapeOnARowThatIsNotInEditDoesNothing)
{
    Move(1, 2);
    Events();

    Escape();

    EXPECT_THAT(Story(), ElementsAre());
    EXPECT_EQ(Current(), "1/2");
}

}  // namespace
}  // namespace clb
