#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/RuntimeError.h"
#include "platform/ProgramFolder.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

mode_t ModeOf(const std::string& path)
{
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 0777;
}

TEST(ProgramFolderTest, TheFolderNamedByTheUserWins)
{
    const TempFolder portable;
    portable.Write("db/clb.mdb", "x");

    EXPECT_EQ(ProgramFolder({"/home/me/books", portable.Path(), "/home/me/.local/share"}),
              "/home/me/books");
}

TEST(ProgramFolderTest, APortableCopyUsesItsOwnFolder)
{
    const TempFolder portable;
    portable.Write("db/clb.mdb", "x");

    EXPECT_EQ(ProgramFolder({std::nullopt, portable.Path(), "/home/me/.local/share"}),
              portable.Path());
}

TEST(ProgramFolderTest, AnInstalledProgramUsesTheUsersDataFolder)
{
    const TempFolder installed;

    EXPECT_EQ(ProgramFolder({std::nullopt, installed.Path(), "/home/me/.local/share"}),
              "/home/me/.local/share/corvane-ledgerbook");
}

TEST(ProgramFolderTest, TheDataFolderComesFromTheEnvironmentWhenItIsAnAbsolutePath)
{
    setenv("XDG_DATA_HOME", "/data/of/mine", 1);
    const std::string named = PlacesOf(std::nullopt).dataHome;
    setenv("XDG_DATA_HOME", "relative", 1);
    setenv("HOME", "/home/me", 1);
    const std::string ignored = PlacesOf(std::nullopt).dataHome;
    unsetenv("XDG_DATA_HOME");

    EXPECT_EQ(named, "/data/of/mine");
    EXPECT_EQ(ignored, "/home/me/.local/share");
}

TEST(ProgramFolderTest, ANewFolderHoldsTheDatabaseForTheUserAlone)
{
    const TempFolder around;
    const std::string folder = around.Path("some/where/books");

    DeliverFolder(folder, "the bytes");

    EXPECT_TRUE(HoldsDatabase(folder));
    EXPECT_EQ(around.Read("some/where/books/db/clb.mdb"), "the bytes");
    EXPECT_EQ(ModeOf(DatabasePath(folder)), 0600U);
    EXPECT_EQ(ModeOf(folder + "/db"), 0700U);
    EXPECT_EQ(ModeOf(folder), 0700U);
}

TEST(ProgramFolderTest, AnExistingDatabaseIsNeverOverwritten)
{
    const TempFolder folder;
    folder.Write("db/clb.mdb", "years of work");

    try {
        DeliverFolder(folder.Path(), "the bytes");
        FAIL() << "nothing was refused";
    } catch (const PortError& error) {
        EXPECT_EQ(error.Number(), errors::FileAlreadyExists);
        EXPECT_EQ(std::string(error.what()), "File already exists: " + folder.Path("db/clb.mdb"));
    }
    EXPECT_EQ(folder.Read("db/clb.mdb"), "years of work");
}

TEST(ProgramFolderTest, AFileWhereAFolderShouldBeIsAPathError)
{
    const TempFolder folder;
    folder.Write("db", "a file");

    try {
        DeliverFolder(folder.Path(), "the bytes");
        FAIL() << "nothing was refused";
    } catch (const PortError& error) {
        EXPECT_EQ(error.Number(), errors::PathAccess);
    }
}

TEST(ProgramFolderTest, OnlyAFolderThatNeverHeldADatabaseIsUnused)
{
    // Symptom: an empty database replaced one that had gone missing.
    const TempFolder lost;
    lost.Write("db/backup/clb-2026-11-21.mdb", "x");
    const TempFolder other;
    std::filesystem::create_directories(other.Path("db/clb.mdb"));
    const TempFolder fresh;

    EXPECT_FALSE(IsUnused(lost.Path()));
    EXPECT_FALSE(IsUnused(other.Path()));
    EXPECT_TRUE(IsUnused(fresh.Path()));
    EXPECT_TRUE(IsUnused(fresh.Path("not/made/yet")));
}

}  // namespace
}  // namespace clb
