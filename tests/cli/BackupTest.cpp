#include "CommandFixture.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "engine/Connection.h"

namespace clb {
namespace {

using testing::HasSubstr;

class BackupTest : public CommandFixture {
protected:
    BackupTest()
    {
        EXPECT_EQ(Run("new " + Books()), 0);
        AddAccount("1");
    }
    void AddAccount(const std::string& id)
    {
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('" + id + "', '" + id +
            "', 'Bank')");
    }
    std::string Accounts() { return Sql("SELECT AccountID FROM Account"); }
    mode_t ModeOf(const std::string& name) const
    {
        struct stat status {};
        stat(folder.Path(name).c_str(), &status);
        return status.st_mode & 0777;
    }
};

TEST_F(BackupTest, ABackupOfTodayIsRestoredByItsDay)
{
    ASSERT_EQ(Run("backup --json" + Home()), 0) << Err();
    const std::string made = Json::parse(Out())["file"];
    AddAccount("2");

    const std::string day = made.substr(made.size() - 14, 10);
    ASSERT_EQ(Run("restore --json " + day + Home()), 0) << Err();

    const Json printed = Json::parse(Out());
    EXPECT_EQ(printed["file"], folder.Path("books/db/clb.mdb"));
    EXPECT_EQ(printed["from"], made);
    EXPECT_EQ(Accounts(), R"([["1"]])");
    ASSERT_EQ(Run("restore '" + printed["kept"].get<std::string>() + "'" + Home()), 0) << Err();
    EXPECT_EQ(Accounts(), R"([["1"],["2"]])");
}

TEST_F(BackupTest, ABackupGoesToAFileThatIsNotThereYet)
{
    const std::string file = "'" + folder.Path("stick.mdb") + "'";
    ASSERT_EQ(Run("backup " + file + Home()), 0) << Err();
    const std::string before = folder.Read("stick.mdb");
    AddAccount("2");

    EXPECT_EQ(Run("backup " + file + Home()), 1);

    EXPECT_EQ(Err(), "clb: File already exists: " + folder.Path("stick.mdb") + "\n");
    EXPECT_TRUE(folder.Read("stick.mdb") == before);
    EXPECT_EQ(ModeOf("stick.mdb"), 0600u);
    EXPECT_FALSE(folder.Holds("books/db/backup"));
}

TEST_F(BackupTest, AnUnknownBackupIsToldWithThoseThereAre)
{
    folder.Write("books/db/backup/clb-2026-11-20.mdb", "");
    folder.Write("books/db/backup/clb-2026-11-21.mdb", "");

    EXPECT_EQ(Run("restore 2026-11-19" + Home()), 1);

    EXPECT_EQ(Err(), "clb: There is no backup 2026-11-19. There are 2026-11-20, 2026-11-21 in " +
                         folder.Path("books/db/backup") + ".\n");
}

TEST_F(BackupTest, ADatabaseInUseIsNotReplaced)
{
    ASSERT_EQ(Run("backup '" + folder.Path("stick.mdb") + "'" + Home()), 0);
    AddAccount("2");
    const std::string before = folder.Read("books/db/clb.mdb");
    Connection other;
    other.Open("Data Source=" + folder.Path("books/db/clb.mdb"));

    EXPECT_EQ(Run("restore '" + folder.Path("stick.mdb") + "'" + Home()), 1);

    EXPECT_THAT(Err(), HasSubstr("is in use by another program. Close the other program"));
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

TEST_F(BackupTest, TheProgramsFilesAreForTheUserAlone)
{
    AddAccount("3");
    ASSERT_EQ(Run("export 3 '" + folder.Path("out.ofx") + "'" + Home()), 0) << Err();
    ASSERT_EQ(Run("options --bank-url https://bank.example" + Home()), 0) << Err();

    EXPECT_EQ(ModeOf("out.ofx"), 0600u);
    EXPECT_EQ(ModeOf("books/cvlb.ini"), 0600u);
    EXPECT_EQ(ModeOf("books/db/clb.mdb"), 0600u);
    EXPECT_EQ(ModeOf("books/db"), 0700u);
}

}  // namespace
}  // namespace clb
