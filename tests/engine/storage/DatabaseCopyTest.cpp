// Copying, checking and replacing a database file.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "engine/storage/DatabaseCopy.h"
#include "tests/engine/EngineFixture.h"
#include "tests/support/AsOrdinaryUser.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class DatabaseCopyTest : public EngineTest {
protected:
    [[nodiscard]] std::string Sibling(const std::string& name) const
    {
        return (std::filesystem::path(path_).parent_path() / name).string();
    }
    static std::string Bytes(const std::string& path)
    {
        if (!std::filesystem::is_regular_file(path))
            return {};
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static void Write(const std::string& path, const std::string& bytes)
    {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static Lines RowsIn(const std::string& path, std::string_view sql)
    {
        Connection connection;
        connection.Open("Data Source=" + path);
        Recordset rows = connection.Execute(sql);
        return RowsOf(rows);
    }
    static mode_t ModeOf(const std::string& path)
    {
        struct stat status {};
        stat(path.c_str(), &status);
        return status.st_mode & 0777;
    }
    /// Enough rows for many pages.
    void AddMany()
    {
        for (int i = 0; i < 2000; ++i)
            Run("INSERT INTO Trans (Sequence, Description) VALUES (" + std::to_string(i) + ", '" +
                std::string(100, 'x') + "')");
        connection_.Settle();
    }
};

TEST_F(DatabaseCopyTest, ACopyHoldsWhatIsSettledAndNothingOfAnUnfinishedCommand)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();
    Run("INSERT INTO Trans (Sequence) VALUES (2)");

    CopyDatabase(path_, Sibling("copy.mdb"));

    EXPECT_EQ(RowsIn(Sibling("copy.mdb"), "SELECT Sequence FROM Trans"), Lines{"1"});
    EXPECT_EQ(FaultsOf(Sibling("copy.mdb")), Lines{});
    connection_.Settle();
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), (Lines{"1", "2"}));
}

TEST_F(DatabaseCopyTest, ACopyIsForTheUserAlone)
{
    CopyDatabase(path_, Sibling("copy.mdb"));

    EXPECT_EQ(ModeOf(Sibling("copy.mdb")), 0600U);
}

TEST_F(DatabaseCopyTest, ACopyReplacesNoFile)
{
    Write(Sibling("copy.mdb"), "mine");

    const auto error = ErrorOf([&] { CopyDatabase(path_, Sibling("copy.mdb")); });

    EXPECT_EQ(std::string(error.what()),
              "The database file '" + Sibling("copy.mdb") + "' exists already.");
    EXPECT_EQ(Bytes(Sibling("copy.mdb")), "mine");
}

TEST_F(DatabaseCopyTest, AFileThatIsNotADatabaseIsNotCopied)
{
    Write(Sibling("letter.txt"), std::string(5000, 'x'));

    const auto error = ErrorOf([&] { CopyDatabase(Sibling("letter.txt"), Sibling("copy.mdb")); });

    EXPECT_EQ(error.Trouble(), FileTrouble::Damaged);
    EXPECT_FALSE(std::filesystem::exists(Sibling("copy.mdb")));
}

TEST_F(DatabaseCopyTest, ReportsTheFaultsOfADamagedFile)
{
    AddMany();
    std::string bytes = Bytes(path_);
    for (std::size_t at = bytes.size() / 2; at < bytes.size() / 2 + 8192; ++at)
        bytes[at] = '\x55';
    Write(Sibling("damaged.mdb"), bytes);

    EXPECT_EQ(FaultsOf(path_), Lines{});
    EXPECT_NE(FaultsOf(Sibling("damaged.mdb")), Lines{});
    EXPECT_TRUE(Bytes(Sibling("damaged.mdb")) == bytes);
}

TEST_F(DatabaseCopyTest, AFileThatIsCutShortDoesNotLookWhole)
{
    AddMany();
    const std::string bytes = Bytes(path_);
    EXPECT_TRUE(LooksWhole(path_));

    for (const std::string& other :
         {std::string(), std::string("letter"), bytes.substr(0, 4096), bytes.substr(0, 99),
          bytes.substr(0, bytes.size() - 1), bytes + std::string(4096, '\0'),
          std::string(bytes.size(), '\0')}) {
        Write(Sibling("other.mdb"), other);
        EXPECT_FALSE(LooksWhole(Sibling("other.mdb"))) << other.size();
    }
    EXPECT_FALSE(LooksWhole(Sibling("")));
    EXPECT_FALSE(LooksWhole(Sibling("gone.mdb")));
}

TEST_F(DatabaseCopyTest, AFinishedFileReplacesNoOtherFile)
{
    Write(Sibling("fresh"), "fresh");
    Write(Sibling("taken"), "mine");

    const auto error = ErrorOf([&] { NameFinished(Sibling("fresh"), Sibling("taken")); });
    EXPECT_EQ(error.what(), "The database file '" + Sibling("taken") + "' exists already.");
    EXPECT_EQ(Bytes(Sibling("taken")), "mine");

    NameFinished(Sibling("fresh"), Sibling("free"));
    EXPECT_EQ(Bytes(Sibling("free")), "fresh");
}

TEST_F(DatabaseCopyTest, ADatabaseIsReplacedAndKept)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();
    CopyDatabase(path_, Sibling("fresh.mdb"));
    Run("INSERT INTO Trans (Sequence) VALUES (2)");
    connection_.Settle();
    connection_ = Connection();

    ReplaceDatabase(path_, Sibling("fresh.mdb"), Sibling("kept.mdb"));

    EXPECT_EQ(RowsIn(path_, "SELECT Sequence FROM Trans"), Lines{"1"});
    EXPECT_EQ(RowsIn(Sibling("kept.mdb"), "SELECT Sequence FROM Trans"), (Lines{"1", "2"}));
    EXPECT_FALSE(std::filesystem::exists(Sibling("fresh.mdb")));
}

/// The storage would roll back the journal of a killed program into the new file.
TEST_F(DatabaseCopyTest, AJournalOfAnUnusableDatabaseIsKeptWithIt)
{
    CopyDatabase(path_, Sibling("fresh.mdb"));
    connection_ = Connection();
    Write(path_, "");
    Write(path_ + "-journal", "journal");

    ReplaceDatabase(path_, Sibling("fresh.mdb"), Sibling("kept.mdb"));

    EXPECT_FALSE(std::filesystem::exists(path_ + "-journal"));
    EXPECT_EQ(Bytes(Sibling("kept.mdb-journal")), "journal");
    EXPECT_EQ(RowsIn(path_, "SELECT COUNT(*) FROM Trans"), Lines{"0"});
}

TEST_F(DatabaseCopyTest, ADatabaseInUseIsNotReplaced)
{
    CopyDatabase(path_, Sibling("fresh.mdb"));
    const std::string before = Bytes(path_);

    const auto error =
        ErrorOf([&] { ReplaceDatabase(path_, Sibling("fresh.mdb"), Sibling("kept.mdb")); });

    EXPECT_EQ(error.Trouble(), FileTrouble::Locked);
    EXPECT_EQ(std::string(error.what()),
              "The database file '" + path_ + "' is in use by another program.");
    EXPECT_TRUE(Bytes(path_) == before);
    EXPECT_FALSE(std::filesystem::exists(Sibling("kept.mdb")));
}

TEST_F(DatabaseCopyTest, ADamagedDatabaseIsKeptByteForByteAndItsJournalSpoilsNothing)
{
    CopyDatabase(path_, Sibling("fresh.mdb"));
    connection_ = Connection();
    Write(path_, "no database");
    Write(path_ + "-journal", "of an interrupted program");

    ReplaceDatabase(path_, Sibling("fresh.mdb"), Sibling("kept.mdb"));

    EXPECT_EQ(Bytes(Sibling("kept.mdb")), "no database");
    EXPECT_FALSE(std::filesystem::exists(path_ + "-journal"));
    EXPECT_EQ(RowsIn(path_, "SELECT COUNT(*) FROM Trans"), Lines{"0"});
}

/// Files that cannot be used, grouped by what is wrong with them.
class TroubleTest : public DatabaseCopyTest {
protected:
    /// Returns the error of opening the file, which must not change the file.
    static EngineError OpeningOf(const std::string& path)
    {
        const std::string before = Bytes(path);
        auto error = ErrorOf([&] {
            Connection connection;
            connection.Open("Data Source=" + path);
        });
        EXPECT_EQ(error.Number(), engine_errors::Unavailable);
        EXPECT_TRUE(Bytes(path) == before);
        return error;
    }
    static std::string Named(const std::string& path, const std::string& what)
    {
        return "The database file '" + path + "' " + what;
    }
};

TEST_F(TroubleTest, AFolderInItsPlaceIsNamed)
{
    std::filesystem::create_directory(Sibling("folder.mdb"));

    const auto error = OpeningOf(Sibling("folder.mdb"));

    EXPECT_EQ(error.what(), Named(Sibling("folder.mdb"), "is a folder."));
    EXPECT_EQ(error.Trouble(), FileTrouble::Folder);
}

TEST_F(TroubleTest, AnEmptyFileIsNotANewDatabase)
{
    // Symptom: an empty file was accepted as a database, and the error was that a table was
    // missing.
    Write(Sibling("empty.mdb"), "");

    const auto error = OpeningOf(Sibling("empty.mdb"));

    EXPECT_EQ(error.what(), Named(Sibling("empty.mdb"), "is damaged or is no database."));
    EXPECT_EQ(error.Trouble(), FileTrouble::Damaged);
}

TEST_F(TroubleTest, ACutFileAndAnOverwrittenHeaderAreDamage)
{
    AddMany();
    const std::string bytes = Bytes(path_);
    Write(Sibling("cut.mdb"), bytes.substr(0, bytes.size() / 2));
    Write(Sibling("header.mdb"), std::string(100, '#') + bytes.substr(100));

    for (const char* name : {"cut.mdb", "header.mdb"})
        EXPECT_EQ(OpeningOf(Sibling(name)).Trouble(), FileTrouble::Damaged) << name;
}

TEST_F(TroubleTest, AFileThatMayNotBeWrittenIsReadOnlyFromTheStart)
{
    CopyDatabase(path_, Sibling("locked-up.mdb"));
    chmod(Sibling("locked-up.mdb").c_str(), 0400);
    const AsOrdinaryUser user({Sibling("locked-up.mdb"), Sibling(""), Sibling("../")});

    const auto error = OpeningOf(Sibling("locked-up.mdb"));

    EXPECT_EQ(error.what(), Named(Sibling("locked-up.mdb"), "is read-only."));
    EXPECT_EQ(error.Trouble(), FileTrouble::ReadOnly);
}

TEST_F(TroubleTest, ReportsAReadOnlyFolderBeforeTheFirstChange)
{
    const AsOrdinaryUser user({path_, Sibling(""), Sibling("../")});
    chmod(Sibling("").c_str(), 0500);

    const auto error = OpeningOf(path_);
    chmod(Sibling("").c_str(), 0700);

    EXPECT_EQ(error.what(), Named(path_, "is in a folder that takes no new files."));
    EXPECT_EQ(error.Trouble(), FileTrouble::FolderReadOnly);
}

TEST_F(TroubleTest, AFileThatAnotherProgramHoldsIsLocked)
{
    Connection other = Another();
    other.Execute("INSERT INTO Trans (Sequence) VALUES (1)");

    const auto error = ErrorOf([&] { Run("INSERT INTO Trans (Sequence) VALUES (2)"); });

    EXPECT_EQ(error.Trouble(), FileTrouble::Locked);
}

}  // namespace
}  // namespace clb
