// Errors of a file that can no longer be written.

#include <sys/resource.h>

#include <filesystem>

#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

class FileTroubleTest : public EngineTest {
protected:
    EngineError WriteError()
    {
        return ErrorOf([&] {
            Run("INSERT INTO Budget (Category) VALUES ('x')");
            connection_.Settle();
        });
    }
    [[nodiscard]] std::string Named(const std::string& what) const
    {
        return "The database file '" + path_ + "' " + what;
    }
};

/// Symptom: it was reported as read-only.
TEST_F(FileTroubleTest, AFileThatWasReplacedIsNotReadOnly)
{
    Rows("SELECT * FROM Budget");
    fs::copy_file(path_, path_ + ".new");
    fs::rename(path_ + ".new", path_);

    const EngineError error = WriteError();

    EXPECT_EQ(error.what(), Named("was replaced or removed by another program."));
    EXPECT_EQ(error.Trouble(), FileTrouble::Replaced);
}

TEST_F(FileTroubleTest, AFileThatWasRemovedIsNotReadOnly)
{
    fs::remove(path_);

    EXPECT_EQ(WriteError().what(), Named("was replaced or removed by another program."));
}

TEST_F(FileTroubleTest, AFileWhoseFolderWasMovedWasRemoved)
{
    const fs::path folder = fs::path(path_).parent_path();
    fs::rename(folder, folder.string() + "-moved");

    const EngineError error = WriteError();

    EXPECT_EQ(error.what(), Named("was replaced or removed by another program."));
    fs::rename(folder.string() + "-moved", folder);
}

TEST_F(FileTroubleTest, AJournalThatCannotBeOpenedIsNamed)
{
    fs::create_directory(path_ + "-journal");

    EXPECT_EQ(WriteError().what(),
              Named("cannot be written: its journal '" + path_ + "-journal' cannot be opened."));
}

TEST_F(FileTroubleTest, TooManyOpenFilesAreNamed)
{
    Rows("SELECT * FROM Budget");
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    // The sanitizers open a pipe to examine an object with virtual functions, such as the test
    // itself.
    Connection& connection = connection_;
    setrlimit(RLIMIT_NOFILE, &none);

    const EngineError error = ErrorOf([&connection] {
        connection.Execute("INSERT INTO Budget (Category) VALUES ('x')");
        connection.Settle();
    });
    setrlimit(RLIMIT_NOFILE, &before);

    EXPECT_EQ(error.what(), Named("cannot be opened: too many files are open."));
    connection_.Settle();
    Run("INSERT INTO Budget (Category) VALUES ('written again')");
    connection_.Settle();
}

}  // namespace
}  // namespace clb
