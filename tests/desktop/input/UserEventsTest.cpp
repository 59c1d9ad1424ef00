#include <gtest/gtest.h>

#include <new>

#include "desktop/input/UserEvents.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class UserEventsTest : public testing::Test {
protected:
    UserEventsTest() : events_(books_.messages)
    {
        books_.AddAccount("C-1", "Bank", "Checking");
        books_.window.Settle();
        events_.Attach([this] { books_.window.Settle(); }, [] {},
                       [this] { books_.window.Abandon(); });
    }
    void Rename(const std::string& name)
    {
        books_.Execute("UPDATE Account SET Description = '" + name + "'");
    }
    std::string Name() { return books_.One("SELECT Description FROM Account"); }
    std::string ReportedText()
    {
        return books_.messages.boxes.size() == 1 ? books_.messages.boxes.front().text
                                                 : "not one box";
    }

    Books books_;
    UserEvents events_;
};

// Symptom: the file had half of an import, with the old balances.
TEST_F(UserEventsTest, ACommandWithoutMemoryIsTakenBackAndSaysSo)
{
    const bool done = events_.Run([this] {
        Rename("Half done");
        throw std::bad_alloc();
    });

    EXPECT_FALSE(done);
    EXPECT_EQ(Name(), "Checking");
    EXPECT_EQ(ReportedText(), "There is not enough memory. Nothing of the last command was kept.");
    EXPECT_TRUE(books_.window.window.Enabled());
}

/// The row that the action was meant for may no longer be the current one.
TEST_F(UserEventsTest, IfTheCheckBeforehandFailsAnActionOnTheRowDoesNotRun)
{
    events_.Before([]() -> bool { throw RuntimeError(errors::InvalidCall, "No"); });
    bool onRow = false;

    EXPECT_FALSE(events_.RunOnRow([&onRow] { onRow = true; }));

    EXPECT_FALSE(onRow);
    EXPECT_EQ(ReportedText(), "No");
    EXPECT_TRUE(events_.Run([] {}));
}

TEST_F(UserEventsTest, ACommandThatFailsByARuntimeErrorKeepsWhatRanBeforeIt)
{
    events_.Run([this] {
        Rename("Before the error");
        throw RuntimeError(errors::InvalidCall, "No");
    });

    EXPECT_EQ(Name(), "Before the error");
    EXPECT_EQ(ReportedText(), "No");
}

TEST_F(UserEventsTest, AnyOtherErrorTakesTheCommandBackToo)
{
    events_.Run([this] {
        Rename("Half done");
        throw std::length_error("Too long");
    });

    EXPECT_EQ(Name(), "Checking");
    EXPECT_EQ(ReportedText(), "Too long\n\nNothing of the last command was kept.");
}

TEST_F(UserEventsTest, ADialogWithoutMemoryEndsTheCommandThatShowsIt)
{
    bool closed = false;
    events_.WhenBroken([&] { closed = true; });
    events_.Run([&] {
        Rename("Half done");
        events_.Run([] { throw std::bad_alloc(); });
        events_.PassOn();
        Rename("The rest");
    });

    EXPECT_TRUE(closed);
    EXPECT_EQ(Name(), "Checking");
    EXPECT_EQ(ReportedText(), "There is not enough memory. Nothing of the last command was kept.");
}

TEST_F(UserEventsTest, TheNextCommandWorks)
{
    events_.Run([] { throw std::bad_alloc(); });

    EXPECT_TRUE(events_.Run([this] { Rename("Next"); }));
    EXPECT_EQ(Name(), "Next");
}

TEST_F(UserEventsTest, AWindowThatCannotBeDrawnForLackOfMemoryKeepsTheCommand)
{
    events_.Attach([this] { books_.window.Settle(); }, [] { throw std::bad_alloc(); },
                   [this] { books_.window.Abandon(); });

    EXPECT_TRUE(events_.Run([this] { Rename("Done"); }));
    EXPECT_EQ(Name(), "Done");
    EXPECT_TRUE(books_.messages.boxes.empty());
}

}  // namespace
}  // namespace clb
