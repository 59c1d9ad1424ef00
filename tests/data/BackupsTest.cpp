#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <thread>

#include "data/Backups.h"
#include "tests/data/BackupsFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/SmallDisk.h"

namespace clb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_EQ(ModeOf("db/backup/clb-2026-11-21.mdb"), 0600U);
    EXPECT_EQ(ModeOf("db/backup"), 0700U);
}

TEST_F(BackupsTest, TheNextCopyRemovesWhatAKilledProgramLeft)
{
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    AddAccount("1", "Bank");
    CloseStore();
    folder_.Write("out.mdb.new-" + std::to_string(gone), "half");

    backups_.CopyTo(folder_.Path("out.mdb"));

    EXPECT_FALSE(folder_.Holds("out.mdb.new-" + std::to_string(gone)));
    EXPECT_THAT(AccountsIn(folder_.Path("out.mdb")), ElementsAre("1"));
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

TEST_F(BackupsTest, AClockThatWasOnceAheadRemovesNoCopy)
{
    // Symptom: copies of 2030 stayed the newest forever, and each new copy was removed at once.
    for (int day = 10; day < 22; ++day)
        backups_.Daily(Day("2030-01-" + std::to_string(day)));
    for (int day = 10; day < 22; ++day) {
        EXPECT_EQ(backups_.Daily(Day("2026-11-" + std::to_string(day))), std::nullopt);
        EXPECT_EQ(backups_.Names().back(), "2026-11-" + std::to_string(day));
    }

    EXPECT_THAT(backups_.Names(),
                ElementsAre("2030-01-10", "2026-11-10", "2026-11-12", "2026-11-13", "2026-11-14",
                            "2026-11-15", "2026-11-16", "2026-11-17", "2026-11-18", "2026-11-19",
                            "2026-11-20", "2026-11-21"));
}

TEST_F(BackupsTest, TheOrderSurvivesACopyOfTheFolder)
{
    for (const char* day : {"2030-01-10", "2026-11-20", "2026-11-21"})
        backups_.Daily(Day(day));
    // All files have the same time then.
    for (const std::string& name : backups_.Names())
        std::filesystem::last_write_time(backups_.PathOf(name),
                                         std::filesystem::file_time_type::clock::now());

    EXPECT_THAT(backups_.Names(), ElementsAre("2030-01-10", "2026-11-20", "2026-11-21"));
    EXPECT_EQ(backups_.LastGood(), "2026-11-21");
}

TEST_F(BackupsTest, WithoutTheListTheTimesOfTheFilesGiveTheOrder)
{
    using std::chrono::hours;
    const auto now = std::filesystem::file_time_type::clock::now();
    AddCopies({"2026-11-20", "2026-11-21", "2027-01-01", "2030-01-10"});
    std::filesystem::last_write_time(backups_.PathOf("2030-01-10"), now + hours(20000));
    std::filesystem::last_write_time(backups_.PathOf("2027-01-01"), now - hours(30));
    std::filesystem::last_write_time(backups_.PathOf("2026-11-20"), now - hours(20));
    std::filesystem::last_write_time(backups_.PathOf("2026-11-21"), now - hours(10));
    folder_.Write("db/backup/order", "\x01\xff no list\n\n2026-11-99\t1 2\n");

    EXPECT_THAT(backups_.Names(),
                ElementsAre("2030-01-10", "2027-01-01", "2026-11-20", "2026-11-21"));
}

// Symptom: a folder in the list's place ended the window, and a pipe made the backup wait for ever.
TEST_F(BackupsTest, AnythingElseInTheListsPlaceCountsAsNoList)
{
    namespace fs = std::filesystem;
    const std::string list = folder_.Path("db/backup/order");
    const std::vector<std::function<void()>> obstacles = {
        [&] { folder_.Write("db/backup/order/kept", "a file"); },
        [&] { mkfifo(list.c_str(), 0600); }, [&] { symlink("order", list.c_str()); },
        [&] { symlink("/", list.c_str()); }};
    for (const auto& make : obstacles) {
        fs::remove_all(folder_.Path("db/backup"));
        AddCopies({"2026-11-20"});
        make();
        EXPECT_FALSE(backups_.HasDay(Day("2026-11-21")));
        EXPECT_EQ(backups_.LastGood(), "2026-11-20");

        EXPECT_EQ(backups_.Daily(Day("2026-11-21")), std::nullopt);

        EXPECT_TRUE(backups_.HasDay(Day("2026-11-21")));
        EXPECT_THAT(backups_.Names(), ElementsAre("2026-11-20", "2026-11-21"));
    }
    folder_.Write("db/backup/failed/kept", "a file");
    EXPECT_EQ(backups_.KeptFailure(), std::nullopt);
    const BackupFailure failure{false, "2026-11-21", "No room."};
    backups_.Keep(failure);
    EXPECT_EQ(backups_.KeptFailure(), failure);
    EXPECT_TRUE(folder_.Holds("db/backup/failed.damaged/kept"));
}

// Symptom: two backups at the same time made two equal copies.
TEST_F(BackupsTest, BackupsMadeAtTheSameTimeAreOne)
{
    AddAccount("1", "Bank");
    CloseStore();
    const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(folder_.Path("db/clb.mdb"), old);
    folder_.Write("db/backup/keep", "");
    std::future<std::string> other;
    std::string first;
    {
        const BackupFolder folder(folder_.Path("db/backup"));
        const BackupFolder::Turn turn(folder);
        other = std::async(std::launch::async, [this] {
            return Backups(folder_.Path()).Make(Day("2026-11-21 10:00:01"));
        });
        // Gives the other backup time to wait for its turn.
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        AddCopies({"2026-11-21"});
        folder.Add("2026-11-21");
        first = backups_.PathOf("2026-11-21");
    }

    EXPECT_EQ(other.get(), first);

    EXPECT_THAT(backups_.Names(), ElementsAre("2026-11-21"));
    EXPECT_NE(backups_.Make(Day("2026-11-21 10:00:02")), first);
}

TEST_F(BackupsTest, AnEmptyFileOfTodaysNameIsReplaced)
{
    // Symptom: an empty file with today's name prevented the day's backup.
    folder_.Write("db/backup/clb-2026-11-21.mdb", "");
    EXPECT_FALSE(backups_.HasDay(Day("2026-11-21")));

    EXPECT_EQ(backups_.Daily(Day("2026-11-21")), std::nullopt);

    EXPECT_TRUE(backups_.HasDay(Day("2026-11-21")));
    EXPECT_EQ(backups_.LastGood(), "2026-11-21");
}

TEST_F(BackupsTest, ABrokenFileOfTodaysNameIsPutAside)
{
    for (const std::string& broken : {Damaged(), Damaged().substr(0, 5000), std::string("text")}) {
        folder_.Write("db/backup/clb-2026-11-21.mdb", broken);
        std::filesystem::remove(folder_.Path("db/backup/clb-2026-11-21.mdb.damaged"));
        EXPECT_FALSE(backups_.HasDay(Day("2026-11-21")));

        EXPECT_EQ(backups_.Daily(Day("2026-11-21")), std::nullopt);

        EXPECT_EQ(backups_.LastGood(), "2026-11-21");
        EXPECT_TRUE(folder_.Read("db/backup/clb-2026-11-21.mdb.damaged") == broken);
    }
}

TEST_F(BackupsTest, ASoundCopyOfTodayThatAnotherVersionMadeStays)
{
    AddCopies({"2026-11-21"});
    AddAccount("1", "Bank");
    Store().Database().Settle();
    EXPECT_FALSE(backups_.HasDay(Day("2026-11-21")));

    EXPECT_EQ(backups_.Daily(Day("2026-11-21")), std::nullopt);

    EXPECT_TRUE(backups_.HasDay(Day("2026-11-21")));
    EXPECT_THAT(AccountsIn(backups_.PathOf("2026-11-21")), IsEmpty());
    EXPECT_FALSE(folder_.Holds("db/backup/clb-2026-11-21.mdb.damaged"));
}

TEST_F(BackupsTest, ABrokenCopyDoesNotReplaceASoundOne)
{
    for (int day = 10; day < 20; ++day)
        AddCopies({"2026-10-" + std::to_string(day)});
    for (int day = 10; day < 20; ++day)
        folder_.Write("db/backup/clb-2026-11-" + std::to_string(day) + ".mdb", "");

    backups_.Daily(Day("2026-11-21"));

    for (int day = 10; day < 20; ++day)
        EXPECT_TRUE(folder_.Holds("db/backup/clb-2026-10-" + std::to_string(day) + ".mdb")) << day;
}

TEST_F(BackupsTest, AFailureIsKeptUntilACopyIsMade)
{
    backups_.Daily(Day("2026-11-20"));
    CloseStore();
    const std::string sound = folder_.Read("db/clb.mdb");
    folder_.Write("db/clb.mdb", "no database");
    const auto failure = backups_.Daily(Day("2026-11-21"));

    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(Backups(folder_.Path()).KeptFailure(), failure);
    EXPECT_EQ(failure->Text(),
              "The daily backup failed; the last good one is of 2026-11-20. The database file '" +
                  folder_.Path("db/clb.mdb") + "' is damaged or is no database.");
    folder_.Write("db/clb.mdb", sound);
    backups_.Make(Day("2026-11-21"));

    EXPECT_EQ(backups_.Failure(), std::nullopt);
}

TEST_F(BackupsTest, AFileInPlaceOfTheFolderIsReported)
{
    folder_.Write("db/backup", "");

    const auto failure = backups_.Daily(Day("2026-11-21"));

    ASSERT_TRUE(failure.has_value());
    EXPECT_FALSE(failure->damaged);
    EXPECT_EQ(failure->Text(), "The daily backup failed; there is no good one. The file '" +
                                   folder_.Path("db/backup") + "' is not a folder.");
    EXPECT_EQ(backups_.Failure(), failure);
}

TEST_F(BackupsTest, AFolderThatMayNotBeWrittenIsReported)
{
    CloseStore();
    backups_.Daily(Day("2026-11-20"));
    chmod(folder_.Path("db/backup").c_str(), 0500);
    const AsOrdinaryUser user({folder_.Path(), folder_.Path("db"), folder_.Path("db/clb.mdb"),
                               folder_.Path("db/backup"), backups_.PathOf("2026-11-20")});

    const auto failure = backups_.Daily(Day("2026-11-21"));

    ASSERT_TRUE(failure.has_value());
    EXPECT_THAT(failure->Text(), testing::StartsWith("The daily backup failed; the last good one "
                                                     "is of 2026-11-20. "));
    EXPECT_EQ(backups_.Failure()->reason,
              "The file '" + folder_.Path("db/backup") + "' cannot be written: Permission denied.");
    chmod(folder_.Path("db/backup").c_str(), 0700);
}

TEST_F(BackupsTest, AFullDiskIsReportedAndLeavesNoHalfCopy)
{
    const SmallDisk disk;
    if (!disk.Mounted())
        GTEST_SKIP() << "this machine lets a test mount nothing";
    std::filesystem::create_directory(disk.Path("db"));
    std::ofstream(disk.Path("db/clb.mdb"), std::ios::binary) << EmptyDatabase();
    Backups backups(disk.Path());
    ASSERT_EQ(backups.Daily(Day("2026-11-20")), std::nullopt);
    disk.Fill();

    const auto failure = backups.Daily(Day("2026-11-21"));

    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->Text(),
              "The daily backup failed; the last good one is of 2026-11-20. The "
              "database file '" +
                  disk.Path("db/backup/clb-2026-11-21.mdb") + "' cannot grow: the disk is full.");
    EXPECT_THAT(backups.Names(), ElementsAre("2026-11-20"));
    // The folder had no room to keep the failure either.
    EXPECT_EQ(backups.KeptFailure(), std::nullopt);
    ASSERT_TRUE(backups.Failure().has_value());
    EXPECT_EQ(backups.Failure()->reason, "The disk of '" + disk.Path("db/backup") +
                                             "' has no room for a copy of the database.");
    std::filesystem::remove(disk.Path("filler"));
    EXPECT_EQ(backups.Daily(Day("2026-11-21")), std::nullopt);
    EXPECT_EQ(backups.Failure(), std::nullopt);
}

TEST_F(BackupsTest, ManyProgramsAtOnceMakeOneCopy)
{
    std::vector<std::future<std::optional<BackupFailure>>> all;
    all.reserve(8);
    for (int program = 0; program < 8; ++program)
        all.push_back(std::async(std::launch::async,
                                 [&] { return Backups(folder_.Path()).Daily(Day("2026-11-21")); }));

    for (auto& one : all)
        EXPECT_EQ(one.get(), std::nullopt);
    EXPECT_THAT(backups_.Names(), ElementsAre("2026-11-21"));
    EXPECT_EQ(backups_.LastGood(), "2026-11-21");
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path("db/backup")))
        files += entry.is_regular_file() ? 1U : 0U;
    EXPECT_EQ(files, 2U) << "the copy and the list";
}

TEST_F(BackupsTest, EachCopyBeforeSomethingRiskyHasItsOwnName)
{
    EXPECT_EQ(backups_.Before("repair", Day("2026-11-22 10:00:00")),
              backups_.PathOf("2026-11-22-before-repair"));
    EXPECT_EQ(backups_.Before("repair", Day("2026-11-22 10:00:00")),
              backups_.PathOf("2026-11-22-before-repair-2"));
    folder_.Write("db/clb.mdb", Damaged());

    EXPECT_THROW(backups_.Before("import", Day("2026-11-22")), EngineError);

    EXPECT_THAT(backups_.Names(),
                ElementsAre("2026-11-22-before-repair", "2026-11-22-before-repair-2"));
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

TEST_F(BackupsTest, UnfinishedFilesOfAnEndedProgramAreRemoved)
{
    const std::string front = "db/backup/clb-2026-11-20.mdb.new-";
    const std::string gone = front + "4194305";  // larger than any process number
    const std::string atWork = front + std::to_string(getpid());
    folder_.Write(gone, "half");
    folder_.Write(atWork, "half");

    backups_.Daily(Day("2026-11-21"));

    EXPECT_FALSE(folder_.Holds(gone));
    EXPECT_TRUE(folder_.Holds(atWork));
}

TEST_F(BackupsTest, ACopyOfADamagedDatabaseIsNotABackupAndRemovesNone)
{
    std::vector<std::string> names;
    for (int day = 10; day < 25; ++day)
        names.push_back("2026-10-" + std::to_string(day));
    AddCopies(names);
    folder_.Write("db/clb.mdb", Damaged());

    const auto failure = backups_.Daily(Day("2026-11-21"));

    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->damaged);
    EXPECT_EQ(failure->lastGood, "2026-10-24");
    EXPECT_THAT(failure->Text(),
                testing::StartsWith("The daily backup failed; the last good one "
                                    "is of 2026-10-24. The file '" +
                                    folder_.Path("db/clb.mdb") + "' is damaged: "));
    EXPECT_EQ(backups_.KeptFailure(), failure);
    EXPECT_EQ(backups_.Names(), names);
    EXPECT_TRUE(folder_.Read("db/clb.mdb") == Damaged());
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

TEST_F(BackupsTest, AnUpgradeWithoutACopyIsReportedAndDone)
{
    Execute("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Execute("ALTER TABLE _SchemaVersion ADD COLUMN 1 LONG");
    Execute("ALTER TABLE Account DROP COLUMN BudgetInclude");
    CloseStore();
    folder_.Write("db/backup", "");

    EXPECT_EQ(backups_.BeforeUpgrade(Day("2026-11-21")),
              "No backup was made before the data was brought up to date. The file '" +
                  folder_.Path("db/backup") + "' is not a folder.");
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

}  // namespace
}  // namespace clb
