#include "data/Backups.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BackupsTest : public StoreTest {
protected:
    static Date Day(const std::string& iso) { return Date::FromIso(iso).value_or(Date()); }
    /// Empty files stand for copies of other days.
    void AddCopies(const std::vector<std::string>& names) const
    {
        for (const std::string& name : names)
            folder_.Write("db/backup/clb-" + name + ".mdb", "");
    }
    mode_t ModeOf(const std::string& name) const
    {
        struct stat status {};
        stat(folder_.Path(name).c_str(), &status);
        return status.st_mode & 0777;
    }
    std::vector<std::string> AccountsIn(const std::string& path)
    {
        Connection connection;
        connection.Open("Data Source=" + path);
        Recordset rows = connection.Execute("SELECT AccountID FROM Account");
        return Lines(rows);
    }
    void CloseStore()
    {
        store_->Database().Settle();
        store_.reset();
    }

    Backups backups_{folder_.Path()};
};

TEST_F(BackupsTest, ADayGetsOneCopyForTheUserAlone)
{
    AddAccount("1", "Bank");
    Store().Database().Settle();
    backups_.Daily(Day("2026-11-21"));
    AddAccount("2", "Bank");
    Store().Database().Settle();

    backups_.Daily(Day("2026-11-21 18:00:00"));

    EXPECT_THAT(backups_.Names(), ElementsAre("2026-11-21"));
    EXPECT_THAT(AccountsIn(folder_.Path("db/backup/clb-2026-11-21.mdb")), ElementsAre("1"));
    EXPECT_EQ(ModeOf("db/backup/clb-2026-11-21.mdb"), 0600u);
    EXPECT_EQ(ModeOf("db/backup"), 0700u);
}

TEST_F(BackupsTest, TenDaysStayAndTheFirstOfEachMonth)
{
    AddCopies({"2026-09-29", "2026-09-30", "2026-10-07", "2026-10-08", "2026-11-02", "2026-11-11",
               "2026-11-12", "2026-11-13", "2026-11-14", "2026-11-15", "2026-11-16", "2026-11-17",
               "2026-11-18", "2026-11-19", "2026-11-20"});

    backups_.Daily(Day("2026-11-21"));

    EXPECT_THAT(backups_.Names(),
                ElementsAre("2026-09-29", "2026-10-07", "2026-11-02", "2026-11-12", "2026-11-13",
                            "2026-11-14", "2026-11-15", "2026-11-16", "2026-11-17", "2026-11-18",
                            "2026-11-19", "2026-11-20", "2026-11-21"));
}

TEST_F(BackupsTest, CopiesMadeOnPurposeAndOtherFilesStay)
{
    AddCopies({"2020-01-02-before-upgrade", "2020-01-03-101500", "mine"});
    for (int day = 10; day < 25; ++day)
        AddCopies({"2026-10-" + std::to_string(day)});

    backups_.Daily(Day("2026-11-21"));

    EXPECT_TRUE(folder_.Holds("db/backup/clb-2020-01-02-before-upgrade.mdb"));
    EXPECT_TRUE(folder_.Holds("db/backup/clb-2020-01-03-101500.mdb"));
    EXPECT_TRUE(folder_.Holds("db/backup/clb-mine.mdb"));
    EXPECT_FALSE(folder_.Holds("db/backup/clb-2026-10-11.mdb"));
}

TEST_F(BackupsTest, WhatAProgramThatIsGoneLeftUnfinishedIsRemoved)
{
    const std::string front = "db/backup/clb-2026-11-20.mdb.new-";
    const std::string gone = front + "4194305";  // no process has so large a number
    const std::string atWork = front + std::to_string(getpid());
    folder_.Write(gone, "half");
    folder_.Write(atWork, "half");

    backups_.Daily(Day("2026-11-21"));

    EXPECT_FALSE(folder_.Holds(gone));
    EXPECT_TRUE(folder_.Holds(atWork));
}

TEST_F(BackupsTest, ACopyOfADamagedDatabaseIsNoBackupAndRemovesNone)
{
    std::vector<std::string> names;
    for (int day = 10; day < 25; ++day)
        names.push_back("2026-10-" + std::to_string(day));
    AddCopies(names);
    std::string bytes(EmptyDatabase());
    bytes.replace(bytes.size() - 4096, 4096, std::string(4096, '\x55'));
    folder_.Write("db/clb.mdb", bytes);

    EXPECT_THROW(backups_.Daily(Day("2026-11-21")), EngineError);

    EXPECT_EQ(backups_.Names(), names);
    EXPECT_TRUE(folder_.Read("db/clb.mdb") == bytes);
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path("db")))
        EXPECT_EQ(entry.path().string().find(".new"), std::string::npos) << entry.path();
}

TEST_F(BackupsTest, ASecondCopyOfTheDayHasItsTime)
{
    backups_.Make(Day("2026-11-21 08:00:00"));
    for (int copy = 1; copy <= 3; ++copy)
        backups_.Make(Day("2026-11-21 15:30:12"));

    EXPECT_THAT(backups_.Names(), ElementsAre("2026-11-21", "2026-11-21-153012",
                                              "2026-11-21-153012-2", "2026-11-21-153012-3"));
}

TEST_F(BackupsTest, AnUpgradeIsPrecededByACopyOfTheOldSchema)
{
    Execute("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Execute("ALTER TABLE _SchemaVersion ADD COLUMN 1 LONG");
    Execute("ALTER TABLE Account DROP COLUMN BudgetInclude");
    CloseStore();

    backups_.BeforeUpgrade(Day("2026-11-21"));
    Store();

    ASSERT_THAT(backups_.Names(), ElementsAre("2026-11-21-before-upgrade"));
    Connection before;
    before.Open("Data Source=" + backups_.PathOf("2026-11-21-before-upgrade"));
    EXPECT_EQ(before.Execute("SELECT * FROM _SchemaVersion").Fields().front().name, "1");
}

TEST_F(BackupsTest, WithoutAnUpgradeThereIsNoCopy)
{
    backups_.BeforeUpgrade(Day("2026-11-21"));
    Execute("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Execute("ALTER TABLE _SchemaVersion ADD COLUMN 7 LONG");
    CloseStore();
    backups_.BeforeUpgrade(Day("2026-11-21"));
    folder_.Write("db/clb.mdb", "no database");
    backups_.BeforeUpgrade(Day("2026-11-21"));

    EXPECT_THAT(backups_.Names(), IsEmpty());
}

TEST_F(BackupsTest, ARestoredBackupTakesThePlaceOfTheDatabaseWhichIsKept)
{
    AddAccount("1", "Bank");
    Store().Database().Settle();
    const std::string backup = backups_.Make(Day("2026-11-20"));
    AddAccount("2", "Bank");
    CloseStore();

    const auto kept = backups_.Restore(backup, Day("2026-11-21"));

    EXPECT_THAT(AccountsIn(folder_.Path("db/clb.mdb")), ElementsAre("1"));
    ASSERT_EQ(kept, backups_.PathOf("2026-11-21-before-restore"));
    EXPECT_THAT(AccountsIn(*kept), ElementsAre("1", "2"));
    EXPECT_THAT(AccountsIn(backup), ElementsAre("1"));
    EXPECT_EQ(ModeOf("db/clb.mdb"), 0600u);
}

TEST_F(BackupsTest, ADamagedBackupIsRefusedAndTheDatabaseStays)
{
    std::string bytes(EmptyDatabase());
    bytes.replace(bytes.size() - 4096, 4096, std::string(4096, '\x55'));
    const std::string damaged = folder_.Write("stick/damaged.mdb", bytes);
    const std::string before = folder_.Read("db/clb.mdb");

    try {
        backups_.Restore(damaged, Day("2026-11-21"));
        FAIL() << "nothing was refused";
    } catch (const EngineError& error) {
        EXPECT_THAT(error.what(), testing::StartsWith("The file '" + damaged + "' is damaged: "));
    }

    EXPECT_TRUE(folder_.Read("db/clb.mdb") == before);
    EXPECT_THAT(backups_.Names(), IsEmpty());
}

TEST_F(BackupsTest, WhatIsNoBackupOfThisProgramIsRefused)
{
    Connection::CreateFile(folder_.Path("other.mdb"), "CREATE TABLE Recipe (Name TEXT);");
    const std::string before = folder_.Read("db/clb.mdb");

    try {
        backups_.Restore(folder_.Path("other.mdb"), Day("2026-11-21"));
        ADD_FAILURE() << "no error";
    } catch (const EngineError& error) {
        EXPECT_EQ(std::string(error.what()), "The file '" + folder_.Path("other.mdb") +
                                                 "' is no copy of this program's database.");
    }

    EXPECT_TRUE(folder_.Read("db/clb.mdb") == before);
}

TEST_F(BackupsTest, ADatabaseThatIsGoneIsRestoredToItsPlace)
{
    const std::string backup = folder_.Write("stick/clb.mdb", EmptyDatabase());
    std::filesystem::remove_all(folder_.Path("db"));

    EXPECT_EQ(backups_.Restore(backup, Day("2026-11-21")), std::nullopt);

    EXPECT_THAT(AccountsIn(folder_.Path("db/clb.mdb")), IsEmpty());
}

TEST_F(BackupsTest, ADatabaseInUseIsNotReplaced)
{
    AddAccount("1", "Bank");
    Store().Database().Settle();
    const std::string backup = folder_.Write("stick/clb.mdb", EmptyDatabase());

    EXPECT_THROW(backups_.Restore(backup, Day("2026-11-21")), EngineError);

    EXPECT_THAT(AccountsIn(folder_.Path("db/clb.mdb")), ElementsAre("1"));
    EXPECT_THAT(backups_.Names(), IsEmpty());
}

}  // namespace
}  // namespace clb
