// A view that cannot be read, because of a lock or a cell, is empty until it can be read; the rest
// of the window goes on.

#include "tests/stress/TwoPrograms.h"

namespace clb {
namespace {

class UnreadableViewTest : public TwoPrograms {
protected:
    UnreadableViewTest() { AddTransaction("B-2", "2006-3", "-4"); }

    std::string Refusal(const Json& request)
    {
        const Json reply = Try(request);
        return reply["ok"] == true ? "" : reply["error"]["message"].get<std::string>();
    }
    std::string Refused(const std::string& node)
    {
        return Refusal({{"do", "click"}, {"text", node}});
    }
    std::string Caption() { return Window()["caption"]; }
    void SpoilChecking()
    {
        past = Past::Refused;
        RawBook(folder.Path()).Run("UPDATE Trans SET Amount = 'x' WHERE Sequence = 1");
    }
    void MendChecking()
    {
        past = Past::Whole;
        RawBook(folder.Path()).Run("UPDATE Trans SET Amount = -100000 WHERE Sequence = 1");
    }
};

constexpr int kAmount = 3;
constexpr const char* kBad =
    "Trans.Amount in row 1: The cell holds the text 'x', which is not an amount.";

TEST_F(UnreadableViewTest, TheViewThatFailsIsEmptyAndTheNextOneShows)
{
    Click("Savings");
    SpoilChecking();

    EXPECT_EQ(Refused("Checking"), kBad);

    EXPECT_EQ(Caption().substr(0, 8), "Checking");
    EXPECT_TRUE(Grid()["rows"].empty());
    EXPECT_TRUE(Grid()["columns"].empty());
    EXPECT_EQ(Refused("Savings"), "");
    EXPECT_EQ(Column(kAmount), R"("-4")");
}

/// Symptom: every later click was answered with "Operation is not allowed when the object is
/// closed."
TEST_F(UnreadableViewTest, WhatOthersWriteThenIsReadAgain)
{
    Click("Savings");
    SpoilChecking();
    EXPECT_EQ(Refused("Checking"), kBad);
    OtherSql("UPDATE Trans SET CheckID = '7' WHERE Sequence = 2");

    EXPECT_EQ(Refused("Savings"), "");
    EXPECT_EQ(Column(kAmount), R"("-4")");
    EXPECT_EQ(Refused("Checking"), kBad);
    MendChecking();

    EXPECT_EQ(Focus("Grid"), "Grid");
    EXPECT_EQ(Column(kAmount), R"("-30" "-20" "-10")");
}

TEST_F(UnreadableViewTest, ANewRecordReadsItAgainOrSaysWhyNot)
{
    Click("Savings");
    SpoilChecking();
    Refused("Checking");

    EXPECT_EQ(Refusal({{"do", "menu"}, {"item", "mnuE_New"}}), kBad);
    EXPECT_EQ(Refusal({{"do", "menu"}, {"item", "mnuE_New"}}), kBad);
    MendChecking();

    EXPECT_EQ(Refusal({{"do", "menu"}, {"item", "mnuE_New"}}), "");
    EXPECT_EQ(Column(kAmount), R"("-30" "-20" "-10")");
}

/// Another program writes into the shown view itself.
TEST_F(UnreadableViewTest, ACellThatSpoilsTheShownViewKeepsNobodyFromLeavingIt)
{
    Move(1, 1);
    SpoilChecking();

    EXPECT_EQ(Refusal({{"do", "menu"}, {"item", "mnuE_Delete"}}), kBad);

    EXPECT_TRUE(Grid()["rows"].empty());
    EXPECT_EQ(Refused("Savings"), "");
    EXPECT_EQ(Column(kAmount), R"("-4")");
    EXPECT_TRUE(EventsOf("box").empty());
}

TEST_F(UnreadableViewTest, AfterALockTheNextClickShowsTheView)
{
    {
        RawBook other(folder.Path());
        other.Run("BEGIN EXCLUSIVE");
        EXPECT_THAT(Refused("Savings"), testing::HasSubstr("is locked by another program"));
        EXPECT_TRUE(Grid()["rows"].empty());
        other.Run("ROLLBACK");
    }
    OtherSql("UPDATE Trans SET CheckID = '7' WHERE Sequence = 2");

    EXPECT_EQ(Refused("Savings"), "");

    EXPECT_EQ(Column(kAmount), R"("-4")");
    EXPECT_EQ(Refused("Checking"), "");
    EXPECT_EQ(Column(kAmount), R"("-30" "-20" "-10")");
}

/// A cell of an account spoils the accounts in the tree as well.
TEST_F(UnreadableViewTest, ATreeThatCannotBeReadStaysUntilItCan)
{
    past = Past::Refused;
    RawBook(folder.Path())
        .Run(
            "UPDATE Account SET OpeningBalance = 'x', Description = 'Other' WHERE AccountID = "
            "'B-2'");

    EXPECT_EQ(Refused("Checking"), "");
    EXPECT_EQ(
        Refused("Savings"),
        "Account.OpeningBalance in row 2: The cell holds the text 'x', which is not an amount.");
    RawBook(folder.Path()).Run("UPDATE Account SET OpeningBalance = 0 WHERE AccountID = 'B-2'");

    EXPECT_EQ(Refused("Other"), "");
    EXPECT_EQ(Column(kAmount), R"("-4")");
}

}  // namespace
}  // namespace clb
