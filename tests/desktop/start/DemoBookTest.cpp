// The book of the demonstration.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/RuntimeError.h"
#include "data/DemoHousehold.h"
#include "desktop/start/DemoBook.h"
#include "files/ReadFile.h"
#include "platform/ProgramFolder.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

class DemoBookTest : public testing::Test {
protected:
    const Date today_ = *Date::Of(2006, 3, 15);
    TempFolder place_;
    std::string folder_ = place_.Path("cache/demo");
};

TEST_F(DemoBookTest, EachStartHasTheHouseholdAsItWas)
{
    PrepareDemoFolder(folder_);
    RenewDemoBook(folder_, today_);
    place_.Write("cache/demo/cvlb.ini", "[Settings]");
    place_.Write("cache/demo/db/clb.mdb", "changed");
    place_.Write("cache/demo/db/backup/clb-2006-03-14.mdb", "old");

    PrepareDemoFolder(folder_);
    RenewDemoBook(folder_, today_);

    EXPECT_EQ(ReadFile(DatabasePath(folder_)), DemoDatabase(today_));
    EXPECT_FALSE(fs::exists(folder_ + "/cvlb.ini"));
    EXPECT_FALSE(fs::exists(folder_ + "/db/backup"));
    EXPECT_TRUE(fs::exists(folder_ + "/Help/index.html"));
}

TEST_F(DemoBookTest, TheLockOfTheProgramStays)
{
    PrepareDemoFolder(folder_);
    place_.Write("cache/demo/db/clb.lock", "7");

    RenewDemoBook(folder_, today_);

    EXPECT_EQ(ReadFile(folder_ + "/db/clb.lock"), "7");
}

/// A link could lead to the user's own book, which must never be replaced.
TEST_F(DemoBookTest, ALinkIsRefused)
{
    place_.Write("own/db/clb.mdb", "own");
    fs::create_directories(place_.Path("cache"));
    fs::create_symlink(place_.Path("own"), folder_);
    EXPECT_THROW(PrepareDemoFolder(folder_), PortError);

    fs::remove(folder_);
    fs::create_directories(folder_);
    fs::create_symlink(place_.Path("own/db"), folder_ + "/db");
    EXPECT_THROW(PrepareDemoFolder(folder_), PortError);
    EXPECT_EQ(ReadFile(place_.Path("own/db/clb.mdb")), "own");
}

TEST_F(DemoBookTest, TheFolderIsInTheUsersFolderForCaches)
{
    EXPECT_TRUE(DemoFolder().ends_with("/corvane-ledgerbook/demo"));
    EXPECT_NE(DemoFolder(), ProgramFolder(PlacesOf(std::nullopt)));
}

}  // namespace
}  // namespace clb
