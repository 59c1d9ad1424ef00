#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "files/Leftovers.h"
#include "files/TemporaryFolder.h"
#include "files/WholeFile.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

/// The number of a process that has ended.
std::string EndedProcess()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    return std::to_string(child);
}

class LeftoversTest : public testing::Test {
protected:
    const std::string ended = EndedProcess();
    TempFolder folder;
};

TEST_F(LeftoversTest, WhatEndedProgramsLeftGoes)
{
    folder.Write(".clb-" + ended + "-aB3xyZ", "half a file");
    folder.Write("clb-" + ended + "-aB3xyZ/db/clb.mdb", "a trial's copy");

    RemoveLeftovers(folder.Path());

    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(LeftoversTest, WhatLivingProgramsWriteStays)
{
    const std::string living = std::to_string(getppid());
    folder.Write(".clb-" + living + "-aB3xyZ", "half a file");
    folder.Write("clb-" + living + "-aB3xyZ/db/clb.mdb", "a trial's copy");
    WholeFile own(folder.Path("own"));

    RemoveLeftovers(folder.Path());
    own.Keep();

    EXPECT_TRUE(folder.Holds("own"));
    EXPECT_TRUE(folder.Holds(".clb-" + living + "-aB3xyZ"));
    EXPECT_TRUE(folder.Holds("clb-" + living + "-aB3xyZ/db/clb.mdb"));
}

TEST_F(LeftoversTest, NamesThatAreNotOursStay)
{
    const std::string names[] = {".clb-" + ended + "-aB3xy",
                                 ".clb-" + ended + "-aB3xyZ1",
                                 ".clb-" + ended + "-aB3xy.",
                                 ".clb--" + ended + "-aB3xyZ",
                                 ".clb-99999999999999-aB3xyZ",
                                 ".clb-0-aB3xyZ",
                                 "clb-" + ended + "-aB3xyZ",
                                 "clb-test-aB3xyZ",
                                 "clb.mdb"};
    for (const std::string& name : names)
        folder.Write(name, "mine");
    folder.Write(".clb-" + ended + "-aB3xyZ/a folder", "mine");

    RemoveLeftovers(folder.Path());
    RemoveLeftovers(folder.Path("missing"));

    for (const std::string& name : names)
        EXPECT_TRUE(folder.Holds(name)) << name;
    EXPECT_TRUE(folder.Holds(".clb-" + ended + "-aB3xyZ/a folder"));
}

TEST_F(LeftoversTest, UnfinishedCopiesOfAPathGoOnceTheirProgramHasEnded)
{
    const std::string living = std::to_string(getppid());
    const std::string own = UnfinishedName(folder.Path("out.mdb"));
    folder.Write("out.mdb.new-" + ended, "half");
    folder.Write("out.mdb.new-" + ended + "-journal", "half");
    const std::string stay[] = {"out.mdb", "out.mdb.new-" + living, "out.mdb.new-", "out.mdb.new-x",
                                "my-out.mdb.new-" + ended};
    for (const std::string& name : stay)
        folder.Write(name, "mine");
    folder.Write(fs::path(own).filename().string(), "at work");

    RemoveUnfinishedOf(folder.Path("out.mdb"));

    EXPECT_EQ(own, folder.Path("out.mdb.new-" + std::to_string(getpid())));
    EXPECT_TRUE(fs::exists(own));
    EXPECT_FALSE(folder.Holds("out.mdb.new-" + ended));
    EXPECT_FALSE(folder.Holds("out.mdb.new-" + ended + "-journal"));
    for (const std::string& name : stay)
        EXPECT_TRUE(folder.Holds(name)) << name;
}

TEST_F(LeftoversTest, UnfinishedCopiesOfAllDatabasesInAFolderGo)
{
    const std::string go[] = {"clb.mdb.new-" + ended, "clb.mdb.new-" + ended + "-journal",
                              "stick.mdb.new-" + ended};
    const std::string stay[] = {"clb.mdb", "letter.new-" + ended, "clb.mdb.new-" + ended + "er",
                                "clb.mdb.new-" + std::to_string(getppid())};
    for (const std::string& name : go)
        folder.Write(name, "half");
    for (const std::string& name : stay)
        folder.Write(name, "mine");

    RemoveUnfinishedIn(folder.Path());

    for (const std::string& name : go)
        EXPECT_FALSE(folder.Holds(name)) << name;
    for (const std::string& name : stay)
        EXPECT_TRUE(folder.Holds(name)) << name;
}

TEST_F(LeftoversTest, WritingBesideALeftoverRemovesIt)
{
    folder.Write(".clb-" + ended + "-aB3xyZ", "half a file");

    ReplaceFile(folder.Path("file"), "whole");

    EXPECT_FALSE(folder.Holds(".clb-" + ended + "-aB3xyZ"));
}

TEST_F(LeftoversTest, ATemporaryFolderIsForTheUserAloneAndGoes)
{
    const char* before = std::getenv("TMPDIR");
    const std::string kept = before ? before : "";
    setenv("TMPDIR", folder.Path().c_str(), 1);
    folder.Write("clb-" + ended + "-aB3xyZ/file", "a killed program's");
    {
        const TemporaryFolder temporary;
        EXPECT_EQ(fs::status(temporary.Path()).permissions(), fs::perms(0700));
        CreateFile(temporary.Path("file"), "bytes");
        EXPECT_FALSE(folder.Holds("clb-" + ended + "-aB3xyZ"));
        EXPECT_FALSE(fs::is_empty(folder.Path()));
    }
    before ? setenv("TMPDIR", kept.c_str(), 1) : unsetenv("TMPDIR");

    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

}  // namespace
}  // namespace clb
