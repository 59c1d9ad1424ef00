// Another program holds the book: a command waits for it only once, not again for each step.

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "CommandFixture.h"
#include "cli/Commands.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

/// Counts the storage's pauses while it exists; they take no time.
class CountedPauses {
public:
    CountedPauses() : files_(*sqlite3_vfs_find(nullptr))
    {
        files_.zName = "counted-pauses";
        files_.xSleep = [](sqlite3_vfs*, int microseconds) {
            passed_ += microseconds;
            return microseconds;
        };
        passed_ = 0;
        sqlite3_vfs_register(&files_, 1);
    }
    ~CountedPauses() { sqlite3_vfs_unregister(&files_); }
    CountedPauses(const CountedPauses&) = delete;
    CountedPauses& operator=(const CountedPauses&) = delete;

    static std::int64_t Milliseconds() { return passed_ / 1000; }

private:
    sqlite3_vfs files_;
    inline static std::int64_t passed_ = 0;
};

class HeldBookTest : public CommandFixture {
protected:
    HeldBookTest()
    {
        EXPECT_EQ(Run("new " + Books()), 0);
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Checking', 'Bank')");
    }
    /// Runs a command in this process, which must refuse the locked book. Returns how long it
    /// waited.
    std::int64_t WaitOf(void (*add)(CLI::App&, int&), std::vector<std::string> words)
    {
        CLI::App app;
        int exitCode = 0;
        add(app, exitCode);
        words.insert(words.end(), {"--home", folder.Path("books")});
        std::reverse(words.begin(), words.end());
        const CountedPauses pauses;
        try {
            app.parse(words);
            ADD_FAILURE() << "the book was not refused";
        } catch (const EngineError& error) {
            EXPECT_EQ(error.Trouble(), FileTrouble::Locked) << error.what();
        }
        return CountedPauses::Milliseconds();
    }
};

// Symptom: a command waited 10 s for the backup before an update, and 10 s more for the book.
TEST_F(HeldBookTest, ACommandWaitsOnlyOnceForTheBook)
{
    const std::string statement = folder.Path("march.ofx");
    Statement("C1", "-2");
    Database other;
    other.OpenExisting(folder.Path("books/db/clb.mdb"));
    other.Run("BEGIN EXCLUSIVE");
    const auto once = testing::AllOf(testing::Ge(10000), testing::Lt(11000));

    EXPECT_THAT(WaitOf(AddAccounts, {"accounts"}), once);
    EXPECT_THAT(WaitOf(AddNetWorth, {"networth"}), once);
    EXPECT_THAT(WaitOf(AddCopyBudget, {"copy-budget", "2006-04"}), once);
    EXPECT_THAT(WaitOf(AddImport, {"import", statement}), once);
    EXPECT_THAT(WaitOf(AddHistory, {"history"}), once);
    EXPECT_THAT(WaitOf(AddUndo, {"undo"}), once);
    EXPECT_THAT(WaitOf(AddRedo, {"redo"}), once);
    EXPECT_THAT(WaitOf(AddCheck, {"check"}), once);
    EXPECT_THAT(WaitOf(AddCheck, {"check", "--repair"}), once);
}

}  // namespace
}  // namespace clb
