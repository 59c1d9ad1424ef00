// If a database file cannot be used, clb says what is wrong, where, and what to do. The file stays.

#include <gmock/gmock.h>

#include "CommandFixture.h"
#include "engine/rows/Connection.h"
#include "tests/support/SmallDisk.h"

namespace clb {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class UnusableFileTest : public CommandFixture {
protected:
    UnusableFileTest() { EXPECT_EQ(Run("new " + Books()), 0); }

    [[nodiscard]] std::string File() const { return folder.Path("books/db/clb.mdb"); }
    [[nodiscard]] std::string Bytes() const
    {
        return std::filesystem::is_regular_file(File()) ? folder.Read("books/db/clb.mdb") : "";
    }
    /// Runs a command that must refuse, print the sentences and leave the file unchanged.
    void ExpectRefused(const std::string& words, const std::string& what, const std::string& advice)
    {
        ExpectRefused(words, what, advice, Bytes());
    }
    /// The same, with the file's bytes given: reading the file here would release this process's
    /// lock.
    void ExpectRefused(const std::string& words, const std::string& what, const std::string& advice,
                       const std::string& before)
    {
        EXPECT_EQ(Run(words), 1);
        EXPECT_THAT(Err(), StartsWith("clb: The database file '" + File() + "' " + what));
        EXPECT_THAT(Err(), HasSubstr(advice));
        EXPECT_TRUE(Bytes() == before);
    }
};

TEST_F(UnusableFileTest, AMissingFile)
{
    std::filesystem::remove(File());

    ExpectRefused("accounts" + Home(), "does not exist. ", "clb restore");
    EXPECT_FALSE(folder.Holds("books/db/clb.mdb"));
}

TEST_F(UnusableFileTest, AFolderInItsPlace)
{
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());

    ExpectRefused("accounts" + Home(), "is a folder. ", "Move that folder away");
}

TEST_F(UnusableFileTest, AFileThatIsNotADatabaseOrIsCut)
{
    const std::string whole = folder.Read("books/db/clb.mdb");
    for (const std::string& bytes :
         {std::string(5000, 'x'), std::string(), whole.substr(0, whole.size() / 2)}) {
        folder.Write("books/db/clb.mdb", bytes);

        ExpectRefused("networth" + Home(), "is damaged or is no database. ", "bring a backup back");
    }
}

TEST_F(UnusableFileTest, AFileThatAnotherProgramHolds)
{
    Sql("INSERT INTO Budget (Year, Period, Category) VALUES (2006, 3, 'Food')");
    const std::string before = Bytes();
    Connection other;
    other.Open("Data Source=" + File());
    other.Execute("UPDATE Account SET Type = 'Bank'");

    ExpectRefused("copy-budget 2006-04" + Home(), "is locked by another program. ", "try again",
                  before);
}

TEST_F(UnusableFileTest, AFolderThatCannotBeMade)
{
    folder.Write("blocked", "a file");

    EXPECT_EQ(Run("new '" + folder.Path("blocked/books") + "'"), 1);

    EXPECT_THAT(Err(), HasSubstr(folder.Path("blocked")));
    EXPECT_THAT(Err(), HasSubstr("where you may write"));
}

/// An account whose balance must be rewritten.
constexpr const char* kWrongBalance =
    "INSERT INTO Account (AccountID, Description, Type, CurrentBalance) VALUES ('1', 'Checking', "
    "'Bank', 5)";

TEST_F(UnusableFileTest, AFullDiskChangesNothing)
{
    const SmallDisk disk;
    if (!disk.Mounted())
        GTEST_SKIP() << "no file system of its own may be mounted here";
    const std::string home = " --home '" + disk.Path("books") + "'";
    ASSERT_EQ(Run("new '" + disk.Path("books") + "'"), 0) << Err();
    ASSERT_EQ(Run("sql '" + disk.Path("books") + "' \"" + kWrongBalance + "\""), 0);
    ASSERT_EQ(Run("backup" + home), 0) << Err();
    disk.Fill();
    const std::string before = disk.Read("books/db/clb.mdb");

    EXPECT_EQ(Run("check --repair" + home), 1);
    EXPECT_THAT(Err(), HasSubstr("cannot grow: the disk is full. The file is as it was before. "
                                 "Make room"));
    EXPECT_EQ(Run("backup" + home), 1);
    EXPECT_THAT(Err(), HasSubstr("the disk is full"));

    EXPECT_TRUE(disk.Read("books/db/clb.mdb") == before);
    std::size_t backups = 0;
    for (const auto& entry : std::filesystem::directory_iterator(disk.Path("books/db/backup")))
        if (entry.path().filename() != "order")
            backups += entry.file_size() == before.size() ? 1U : 100U;
    EXPECT_EQ(backups, 1U);
}

TEST_F(UnusableFileTest, AnExportToAFullDiskLeavesTheOldFile)
{
    const SmallDisk disk;
    if (!disk.Mounted())
        GTEST_SKIP() << "no file system of its own may be mounted here";
    ASSERT_EQ(Run("demo '" + folder.Path("demo") + "'"), 0) << Err();
    const std::string words = "export Wallet '" + disk.Path("wallet.ofx") + "' --replace --home '" +
                              folder.Path("demo") + "'";
    ASSERT_EQ(Run(words), 0) << Err();
    const std::string former = disk.Read("wallet.ofx");
    disk.Fill();

    EXPECT_EQ(Run(words), 1);

    EXPECT_THAT(Err(), HasSubstr("Path/File access error: " + disk.Path("wallet.ofx")));
    EXPECT_TRUE(disk.Read("wallet.ofx") == former);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk.Path()), {}), 2);
}

TEST_F(UnusableFileTest, AFileThatMayNotGrowIsAFullDisk)
{
    ASSERT_EQ(Run("sql " + Books() + " \"" + kWrongBalance + "\""), 0);
    const std::string before = folder.Read("books/db/clb.mdb");
    const std::string command = "trap '' XFSZ; ulimit -f 1; '" CLB_PROGRAM "' check --repair" +
                                Home() + " >/dev/null 2>'" + folder.Path("err") + "'";

    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);

    EXPECT_THAT(Err(), HasSubstr("cannot grow: the disk is full."));
    EXPECT_TRUE(Bytes() == before);
}

}  // namespace
}  // namespace clb
