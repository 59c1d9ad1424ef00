// Programs that are killed, and groups that cannot be committed.
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class CrashTest : public EngineTest {
protected:
    /// Runs the action in its own process, which is killed afterwards.
    template <typename Action>
    void InAKilledProcess(Action action)
    {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            action();
            ::kill(::getpid(), SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
};

/// Another program that is reading, so that a group cannot be settled.
class LongReader {
public:
    explicit LongReader(const std::string& path)
    {
        sqlite3_open(path.c_str(), &database_);
        sqlite3_prepare_v2(database_, "SELECT name FROM sqlite_master", -1, &query_, nullptr);
        sqlite3_step(query_);
    }
    ~LongReader()
    {
        sqlite3_finalize(query_);
        sqlite3_close(database_);
    }
    LongReader(const LongReader&) = delete;
    LongReader& operator=(const LongReader&) = delete;

private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* query_ = nullptr;
};

TEST_F(CrashTest, AKilledProgramLeavesTheFileInItsSettledState)
{
    InAKilledProcess([&] {
        Connection connection;
        connection.Open(ConnectionText());
        connection.Execute("INSERT INTO Trans (Sequence, Description) VALUES (1, 'settled')");
        connection.Settle();
        // There is more data than the storage keeps in memory, so that the file itself has been
        // written to.
        Recordset rows;
        rows.Open("SELECT Sequence, Description FROM Trans", connection, CursorKind::Keyset,
                  LockKind::Optimistic);
        for (int i = 0; i < 30000; ++i) {
            rows.AddNew();
            rows.Set(0, i);
            rows.Set(1, std::string(900, 'x'));
            rows.Update();
        }
        connection.Execute("UPDATE Trans SET Description = 'changed' WHERE Sequence = 1");
    });

    EXPECT_EQ(Rows("SELECT Sequence, Description FROM Trans"), Lines{"1|settled"});
}

TEST_F(CrashTest, AKilledChangeOfTheSchemaKeepsTheOldSchema)
{
    Run("INSERT INTO Loan (Description, InterestRate) VALUES ('Car', 5)");
    connection_.Settle();

    InAKilledProcess([&] {
        Connection connection;
        connection.Open(ConnectionText());
        connection.Execute("ALTER TABLE Loan ALTER COLUMN InterestRate MONEY");
    });

    EXPECT_EQ(FieldsOf("SELECT InterestRate FROM Loan"), "InterestRate:single");
    EXPECT_EQ(Rows("SELECT Description, InterestRate FROM Loan"), Lines{"Car|5"});
}

TEST_F(CrashTest, AGroupThatCannotBeSettledIsLostAndTheFileIsAsBefore)
{
    Run("INSERT INTO Trans (Sequence) VALUES (1)");
    connection_.Settle();
    Run("INSERT INTO Trans (Sequence) VALUES (2)");
    Run("ALTER TABLE Trans ADD COLUMN Note TEXT");
    {
        const LongReader reader(path_);
        const auto error = ErrorOf([&] { connection_.Settle(); });
        EXPECT_EQ(error.Number(), engine_errors::Unavailable);
        EXPECT_EQ(std::string(error.what()),
                  "The database file '" + path_ + "' is locked by another program.");
    }

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), Lines{"1"});
    EXPECT_EQ(ErrorOf([&] { Run("SELECT Note FROM Trans"); }).Number(),
              engine_errors::NoSuchColumn);
    Run("INSERT INTO Trans (Sequence) VALUES (3)");
    connection_.Settle();
    KillAndReopen();
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), (Lines{"1", "3"}));
}

}  // namespace
}  // namespace clb
