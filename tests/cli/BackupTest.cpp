#include <gmock/gmock.h>
#include <sys/stat.h>

#include <future>
#include <set>

#include "CommandFixture.h"
#include "data/Backups.h"
#include "engine/rows/Connection.h"
#include "engine/storage/Database.h"
#include "engine/storage/DatabaseCopy.h"

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
    [[nodiscard]] mode_t ModeOf(const std::string& name) const
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

TEST_F(BackupTest, WhatACheckFindsInARestoredBookIsReported)
{
    Run("backup '" + folder.Path("stick.mdb") + "'" + Home());
    {
        Database storage;
        storage.OpenExisting(folder.Path("stick.mdb"));
        storage.Run(
            "CREATE TRIGGER Eater AFTER INSERT ON Trans BEGIN DELETE FROM Trans WHERE rowid < "
            "NEW.rowid; END");
    }

    ASSERT_EQ(Run("restore '" + folder.Path("stick.mdb") + "'" + Home()), 0) << Err();
    EXPECT_THAT(Out(), HasSubstr("It is not in order; \"clb check\" tells what that means:\n   The "
                                 "trigger Eater on Trans is not this program's.\n"));
    ASSERT_EQ(Run("restore --json '" + folder.Path("stick.mdb") + "'" + Home()), 0) << Err();
    EXPECT_EQ(Json::parse(Out())["findings"],
              Json::array({"The trigger Eater on Trans is not this program's."}));
}

// Symptom: half a book, as large as the book, stayed until a backup was restored again.
TEST_F(BackupTest, TheNextCommandRemovesFilesThatKilledProgramsLeft)
{
    const std::string ended = "4194305";  // larger than any process number
    const std::string names[] = {"books/db/clb.mdb.new-" + ended,
                                 "books/db/backup/clb-2026-11-21.mdb.new-" + ended + "-journal"};
    const std::string commands[] = {"accounts" + Home(), "check" + Home(), "backup" + Home(),
                                    "sql " + Books() + " 'SELECT AccountID FROM Account'",
                                    "import --dry-run " + Statement("1", "2") + Home()};
    for (const std::string& command : commands) {
        for (const std::string& name : names)
            folder.Write(name, "half");

        EXPECT_EQ(Run(command), 0) << command << Err();

        for (const std::string& name : names)
            EXPECT_FALSE(folder.Holds(name)) << command;
    }
    folder.Write("stick/old.mdb.new-" + ended, "half");
    EXPECT_EQ(Run("backup '" + folder.Path("stick/new.mdb") + "'" + Home()), 0) << Err();
    EXPECT_FALSE(folder.Holds("stick/old.mdb.new-" + ended));
}

TEST_F(BackupTest, ABackupNeedsAFileThatDoesNotExist)
{
    const std::string file = "'" + folder.Path("stick.mdb") + "'";
    ASSERT_EQ(Run("backup " + file + Home()), 0) << Err();
    const std::string before = folder.Read("stick.mdb");
    AddAccount("2");

    EXPECT_EQ(Run("backup " + file + Home()), 1);

    EXPECT_EQ(Err(), "clb: File already exists: " + folder.Path("stick.mdb") + "\n");
    EXPECT_TRUE(folder.Read("stick.mdb") == before);
    EXPECT_EQ(ModeOf("stick.mdb"), 0600U);
    EXPECT_FALSE(folder.Holds("books/db/backup"));
}

TEST_F(BackupTest, AnUnknownBackupIsReportedWithTheExistingOnes)
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

TEST_F(BackupTest, WhatIsNotAWholeBookIsNotRestored)
{
    const std::string letter = folder.Write("letter.txt", "Dear bank");
    const std::string before = folder.Read("books/db/clb.mdb");

    EXPECT_EQ(Run("restore '" + letter + "'" + Home()), 1);
    EXPECT_EQ(Err(), "clb: The file '" + letter + "' is not a backup: it is not a database.\n");
    EXPECT_EQ(Run("restore '" + folder.Path("books") + "'" + Home()), 1);
    EXPECT_EQ(Err(), "clb: The file '" + folder.Path("books") + "' is a folder, not a backup.\n");

    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

/// Symptoms: a folder that does not exist was reported below the folder of backups, and a link to
/// itself was reported as "filesystem error: status".
TEST_F(BackupTest, WhyAFileCannotBeRestoredIsReportedInASentence)
{
    const std::string before = folder.Read("books/db/clb.mdb");
    const auto refusal = [&](const std::string& path) {
        EXPECT_EQ(Run("restore '" + path + "'" + Home()), 1);
        return Err();
    };
    const std::string missing = folder.Path("nowhere/stick.mdb");
    EXPECT_EQ(refusal(missing), "clb: The file '" + missing + "' does not exist.\n");

    const std::string loop = folder.Path("loop.mdb");
    std::filesystem::create_symlink(loop, loop);
    EXPECT_EQ(refusal(loop),
              "clb: The file '" + loop + "' cannot be read: Too many levels of symbolic links.\n");

    const std::string longName(300, 'x');
    EXPECT_EQ(refusal(longName),
              "clb: The file '" + longName + "' cannot be read: File name too long.\n");

    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

/// Symptom: the advice was to keep the file and to restore a backup.
TEST_F(BackupTest, ForADamagedBackupAnotherOneIsAdvised)
{
    const std::string whole = folder.Read("books/db/clb.mdb");
    const std::string half = folder.Write("half.mdb", whole.substr(0, whole.size() / 2));
    const std::string torn =
        folder.Write("torn.mdb", std::string(whole).replace(8192, 4096, std::string(4096, 'U')));
    for (const std::string& file : {half, torn}) {
        EXPECT_EQ(Run("restore '" + file + "'" + Home()), 1);

        EXPECT_THAT(Err(), HasSubstr("file '" + file + "' is damaged"));
        EXPECT_THAT(Err(), HasSubstr("The database is as it was. Restore another backup.\n"));
    }
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == whole);
}

TEST_F(BackupTest, CheckReportsAFileInPlaceOfTheFolder)
{
    folder.Write("books/db/backup", "");

    EXPECT_EQ(Run("check --json" + Home()), 2);

    const Json findings = Json::parse(Out())["findings"];
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0]["kind"], "backup");
    EXPECT_EQ(findings[0]["text"], "The daily backup failed; there is no good one. The file '" +
                                       folder.Path("books/db/backup") + "' is not a folder.");
}

TEST_F(BackupTest, CheckReportsAFailedDailyBackupUntilOneIsMade)
{
    // Symptom: a failed daily backup was not reported anywhere.
    ASSERT_EQ(Run("backup" + Home()), 0) << Err();
    EXPECT_EQ(Run("check" + Home()), 0) << Out();
    Backups backups(folder.Path("books"));
    backups.Keep({false, "2026-11-20", "The disk is full."});

    EXPECT_EQ(Run("check" + Home()), 2);
    EXPECT_THAT(Out(), HasSubstr("1. The daily backup failed; the last good one is of 2026-11-20. "
                                 "The disk is full.\n"));
    ASSERT_EQ(Run("backup" + Home()), 0) << Err();
    EXPECT_EQ(Run("check" + Home()), 0) << Out();
}

TEST_F(BackupTest, SeveralAtOnceMakeOrShareSoundCopies)
{
    std::vector<std::future<std::string>> all;
    all.reserve(4);
    for (int program = 0; program < 4; ++program)
        all.push_back(std::async(std::launch::async, [&, program] {
            const std::string out = folder.Path("out" + std::to_string(program));
            const std::string command =
                "'" CLB_PROGRAM "' backup" + Home() + " >'" + out + "' 2>&1";
            EXPECT_EQ(std::system(command.c_str()), 0);
            return folder.Read("out" + std::to_string(program));
        }));
    std::set<std::string> made;
    for (auto& one : all)
        made.insert(one.get());

    // How many of them wait for each other depends on the machine.
    const Backups backups(folder.Path("books"));
    EXPECT_EQ(backups.Names().size(), made.size());
    for (const std::string& name : backups.Names())
        EXPECT_EQ(FaultsOf(backups.PathOf(name)), std::vector<std::string>()) << name;
}

TEST_F(BackupTest, AnUpdateWithoutABackupIsReported)
{
    Sql("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Sql("ALTER TABLE _SchemaVersion ADD COLUMN 1 LONG");
    Sql("ALTER TABLE Account DROP COLUMN BudgetInclude");
    folder.Write("books/db/backup", "");

    EXPECT_EQ(Run("accounts" + Home()), 0);

    EXPECT_EQ(Err(), "No backup was made before the data was brought up to date. The file '" +
                         folder.Path("books/db/backup") + "' is not a folder.\n");
}

TEST_F(BackupTest, OnlyTheUserCanReadTheProgramsFiles)
{
    AddAccount("3");
    ASSERT_EQ(Run("export 3 '" + folder.Path("out.ofx") + "'" + Home()), 0) << Err();
    ASSERT_EQ(Run("options --bank-url https://bank.example" + Home()), 0) << Err();

    EXPECT_EQ(ModeOf("out.ofx"), 0600U);
    EXPECT_EQ(ModeOf("books/cvlb.ini"), 0600U);
    EXPECT_EQ(ModeOf("books/db/clb.mdb"), 0600U);
    EXPECT_EQ(ModeOf("books/db"), 0700U);
}

}  // namespace
}  // namespace clb
