// When changes become durable, and files that cannot be used.
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class DurabilityTest : public EngineTest {
protected:
    static std::string Failure(const std::string& text)
    {
        Connection connection;
        const auto error = ErrorOf([&] { connection.Open(text); });
        EXPECT_EQ(error.Number(), engine_errors::Unavailable);
        EXPECT_FALSE(connection.IsOpen());
        return error.what();
    }
    [[nodiscard]] std::string Sibling(const std::string& name) const
    {
        return (std::filesystem::path(path_).parent_path() / name).string();
    }
};

TEST_F(DurabilityTest, WhatWasSettledSurvivesAndTheRestIsLost)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();
    Run("INSERT INTO Trans (Sequence) VALUES (2)");
    Run("UPDATE Trans SET Year = 1");

    KillAndReopen();

    EXPECT_EQ(Rows("SELECT Sequence, Year FROM Trans"), Lines{"1|0"});
}

TEST_F(DurabilityTest, ChangesOfTheSchemaSettleLikeRows)
{
    Run("ALTER TABLE _SchemaVersion DROP COLUMN 2");
    Run("ALTER TABLE _SchemaVersion ADD  COLUMN 3 LONG");
    KillAndReopen();
    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "2:long");

    Run("ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE");
    connection_.Settle();
    KillAndReopen();
    EXPECT_EQ(FieldsOf("SELECT InterestRate FROM Loan"), "InterestRate:double");
}

TEST_F(DurabilityTest, AnErrorKeepsWhatRanBeforeIt)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    EXPECT_THROW(Run("INSERT INTO Trans (Sequence) VALUES ('x')"), EngineError);
    EXPECT_THROW(Run("ALTER TABLE Trans ALTER COLUMN Sequence DATETIME"), EngineError);
    connection_.Settle();

    KillAndReopen();

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), Lines{"1"});
}

TEST_F(DurabilityTest, AnotherProgramSeesOnlyWhatIsSettled)
{
    Connection other = Another();
    Run("INSERT INTO Trans (Sequence) VALUES (1)");

    EXPECT_EQ(other.Execute("SELECT COUNT(*) FROM Trans").Get(0), Value(std::int32_t{0}));
    connection_.Settle();
    EXPECT_EQ(other.Execute("SELECT COUNT(*) FROM Trans").Get(0), Value(std::int32_t{1}));
}

TEST_F(DurabilityTest, AFileThatAnotherProgramWritesToIsLocked)
{
    Connection other = Another();
    other.Execute("INSERT INTO Trans (Sequence) VALUES (1)");

    const auto error = ErrorOf([&] { Run("INSERT INTO Trans (Sequence) VALUES (2)"); });

    EXPECT_EQ(error.Number(), engine_errors::Unavailable);
    EXPECT_EQ(std::string(error.what()),
              "The database file '" + path_ + "' is locked by another program.");
    other.Settle();
    Run("INSERT INTO Trans (Sequence) VALUES (2)");
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), (Lines{"1", "2"}));
}

TEST_F(DurabilityTest, AWriteWaitsForAProgramThatIsSoonDone)
{
    std::promise<void> written;
    std::thread another([&] {
        Connection other = Another();
        other.Execute("INSERT INTO Trans (Sequence) VALUES (1)");
        written.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        other.Settle();
    });
    written.get_future().wait();

    EXPECT_NO_THROW(Run("INSERT INTO Trans (Sequence) VALUES (2)"));
    another.join();
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), (Lines{"1", "2"}));
}

TEST_F(DurabilityTest, AnOpenResultSetHoldsNoLock)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();
    const Recordset rows = Opened("SELECT Sequence FROM Trans");

    Connection other = Another();
    other.Execute("DROP TABLE Loan");
    other.Settle();

    EXPECT_EQ(rows.Get(0), Value(std::int32_t{1}));
}

TEST_F(DurabilityTest, SettlingNothingDoesNothing)
{
    connection_.Settle();
    connection_.Settle();

    EXPECT_FALSE(std::filesystem::exists(path_ + "-journal"));
}

TEST_F(DurabilityTest, TheDataIsOneFile)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();

    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(path_).parent_path()))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 1);
}

TEST_F(DurabilityTest, BothKindsOfSlashesSeparateFolders)
{
    const auto folder = std::filesystem::path(path_).parent_path().parent_path().string();
    for (const std::string& text :
         {"Provider=X;Data Source=" + folder + R"(\db\clb.mdb;Persist Security Info=False)",
          "data source=" + folder + "/db/clb.mdb",
          "Data Source = " + folder + R"(\db/clb.mdb ;)"}) {
        SCOPED_TRACE(text);
        Connection connection;
        connection.Open(text);
        EXPECT_TRUE(connection.IsOpen());
    }
}

TEST_F(DurabilityTest, AFoldersNameMayHoldASemicolon)
{
    const std::string folder = Sibling("a; b");
    std::filesystem::create_directory(folder);
    std::filesystem::copy(path_, folder + "/clb.mdb");

    Connection connection;
    connection.Open("Provider=X;Data Source=" + folder + R"(\clb.mdb;Persist Security Info=False)");

    EXPECT_TRUE(connection.IsOpen());
}

TEST_F(DurabilityTest, AMissingFileIsNamedAndNotCreated)
{
    const std::string missing = Sibling("none.mdb");

    EXPECT_EQ(Failure("Data Source=" + missing),
              "The database file '" + missing + "' does not exist.");
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(Failure("Data Source=:memory:"), "The database file ':memory:' does not exist.");
    EXPECT_EQ(Failure("Provider=X"), "The connection string names no data source.");
}

TEST_F(DurabilityTest, ADamagedFileIsNamed)
{
    const std::string damaged = Sibling("damaged.mdb");
    std::ofstream(damaged) << std::string(4096, 'x');

    EXPECT_EQ(Failure("Data Source=" + damaged),
              "The database file '" + damaged + "' is damaged or is no database.");
}

TEST_F(DurabilityTest, AConnectionIsOpenedOnce)
{
    EXPECT_EQ(ErrorOf([&] { connection_.Open(ConnectionText()); }).Number(),
              engine_errors::AlreadyOpen);
    Connection closed;
    EXPECT_EQ(ErrorOf([&] { closed.Execute("SELECT * FROM Trans"); }).Number(),
              engine_errors::Closed);
    EXPECT_EQ(ErrorOf([&] { closed.Group(); }).Number(), engine_errors::Closed);
}

TEST_F(DurabilityTest, ARefusedRowLosesNothingOfAGroupThatWasOpenedInAdvance)
{
    Run("CREATE TABLE Once (a LONG, PRIMARY KEY (a))");
    connection_.Group();
    Run("INSERT INTO Once VALUES (1)");

    EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO Once VALUES (1)"); }).Number(),
              engine_errors::Constraint);
    EXPECT_FALSE(connection_.LostGroup());
    connection_.Settle();
    EXPECT_EQ(Rows("SELECT a FROM Once"), Lines{"1"});
}

TEST_F(DurabilityTest, ANewFileIsMadeWholeOrNotAtAll)
{
    const std::string file = Sibling("new.mdb");

    EXPECT_THROW(Connection::CreateFile(file, "CREATE TABLE a (x LONG); nonsense;"), EngineError);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::exists(file + ".new"));
    Connection::CreateFile(file, "CREATE TABLE a (x LONG);");
    EXPECT_TRUE(std::filesystem::exists(file));
    const auto error = ErrorOf([&] { Connection::CreateFile(file, "CREATE TABLE a (x LONG);"); });
    EXPECT_EQ(std::string(error.what()), "The database file '" + file + "' exists already.");
}

}  // namespace
}  // namespace clb
