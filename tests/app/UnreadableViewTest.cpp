// If a view cannot be read, the grid is empty and says why, and nothing is half shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/EmptyHint.h"
#include "app/OtherPrograms.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class UnreadableViewTest : public ::testing::Test {
protected:
    UnreadableViewTest()
    {
        books_.AddAccount("C1", "Bank", "Checking");
        for (const char* number : {"1", "2"})
            books_.Execute(std::string("INSERT INTO Trans (AccountID, Amount, Sequence, PostDate, "
                                       "[Year], Period) VALUES ('C1', 5, ") +
                           number + ", #2006-03-01#, 2006, 3)");
        books_.window.Settle();
    }
    void Foreign(const std::string& sql)
    {
        Database storage;
        storage.OpenExisting(books_.folder.Path("db/clb.mdb"));
        storage.Run(sql);
    }
    void ShowChecking()
    {
        books_.window.View().AccountID("C1");
        books_.window.View().View(vwAccount);
    }
    GridComponent& Grid() { return books_.window.Grid; }

    Books books_;
    const std::string spoil_ = "UPDATE Trans SET Amount = 'x' WHERE Sequence = 2";
    const std::string mend_ = "UPDATE Trans SET Amount = 50000 WHERE Sequence = 2";
};

TEST_F(UnreadableViewTest, TheGridIsEmptyIsPaintedAndSaysWhy)
{
    Foreign(spoil_);

    EXPECT_THROW(ShowChecking(), EngineError);

    EXPECT_EQ(Grid().Rows().Count(), 0U);
    EXPECT_EQ(Grid().Columns().Count(), 0);
    EXPECT_TRUE(Grid().Redraw());
    EXPECT_EQ(books_.window.lblTotal.Caption(), "");
    EXPECT_EQ(books_.window.txtTotal.Text(), "");
    const auto hint = HintFor(books_.window);
    ASSERT_TRUE(hint.has_value());
    EXPECT_EQ(hint->title, "This view could not be read");
    EXPECT_EQ(hint->text,
              "Trans.Amount in row 2: The cell holds the text 'x', which is not an amount. Choose "
              "it again to read it.");
    EXPECT_TRUE(hint->ways.empty());
}

/// Symptom: a message box every second as long as the window was open.
TEST_F(UnreadableViewTest, WhatOthersWriteIsFollowedWithoutAnError)
{
    ShowChecking();
    Foreign(spoil_);

    EXPECT_NO_THROW(books_.window.Others().Follow());
    EXPECT_EQ(Grid().Rows().Count(), 0U);
    EXPECT_FALSE(books_.window.Others().HaveWritten());
    Foreign(mend_);
    books_.window.Others().Follow();

    EXPECT_EQ(Grid().Rows().Count(), 3U);
    EXPECT_EQ(books_.window.txtTotal.Text(), "10.00");
    EXPECT_EQ(HintFor(books_.window), std::nullopt);
}

/// Another program spoils a cell after a command has checked the rows and before it reads them.
TEST_F(UnreadableViewTest, AfterACommandThatCannotReadTheRowsAgainTheGridIsEmpty)
{
    ShowChecking();
    books_.window.window.Focus(Grid());
    Grid().MoveTo(2, 1);
    Foreign(spoil_);

    EXPECT_THROW(books_.window.menus.Find("mnuE_MoveNext")->Press(), EngineError);
    books_.window.Settle();

    EXPECT_EQ(Grid().Rows().Count(), 0U);
    EXPECT_EQ(Grid().Columns().Count(), 0);
    Foreign(mend_);
    books_.window.Others().Follow();
    EXPECT_EQ(Grid().Rows().Count(), 2U);
}

TEST_F(UnreadableViewTest, ATreeThatCannotBeReadStaysAsItWas)
{
    books_.window.View().BuildTree();
    const std::int32_t nodes = books_.window.TreeView.Count();
    Foreign("UPDATE Account SET OpeningBalance = 'x'");

    EXPECT_THROW(books_.window.View().BuildTree(), EngineError);

    EXPECT_EQ(books_.window.TreeView.Count(), nodes);
}

}  // namespace
}  // namespace clb
