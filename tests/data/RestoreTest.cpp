// Replacing the database by a backup, and files that are refused as backups.
#include <sqlite3.h>

#include "tests/data/BackupsFixture.h"

namespace clb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RestoreTest : public BackupsTest {};

TEST_F(RestoreTest, ARestoredBackupReplacesTheDatabaseWhichIsKept)
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
    EXPECT_EQ(ModeOf("db/clb.mdb"), 0600U);
}

TEST_F(RestoreTest, ADamagedBackupIsRefusedAndTheDatabaseStays)
{
    const std::string damaged = folder_.Write("stick/damaged.mdb", Damaged());

    EXPECT_THAT(RefusalOf(damaged), testing::StartsWith("The file '" + damaged + "' is damaged: "));
}

TEST_F(RestoreTest, AFileThatIsNotABackupOfThisProgramIsRefused)
{
    const std::string other = folder_.Path("other.mdb");
    Connection::CreateFile(other, "CREATE TABLE Recipe (Name TEXT);");

    EXPECT_EQ(RefusalOf(other),
              "The file '" + other +
                  "' is not a backup of this program: the tables Account, Trans, Budget, "
                  "Investment and Loan are missing.");
}

TEST_F(RestoreTest, ABookThatLacksATableOrAColumnIsRefused)
{
    // Symptom: a file without the table Budget took the place of a whole book.
    const auto book = [&](const std::string& name, const std::string& statement) {
        std::string path = folder_.Write(name, EmptyDatabase());
        Connection connection;
        connection.Open("Data Source=" + path);
        connection.Execute(statement);
        connection.Settle();
        return path;
    };
    const std::string table = book("table.mdb", "DROP TABLE Budget");
    const std::string column = book("column.mdb", "ALTER TABLE Loan DROP COLUMN PaidAmount");
    const std::string include = book("new.mdb", "ALTER TABLE Account DROP COLUMN BudgetInclude");

    const std::string refused = "' is not a backup of this program: the ";
    EXPECT_EQ(RefusalOf(table), "The file '" + table + refused + "table Budget is missing.");
    EXPECT_EQ(RefusalOf(column),
              "The file '" + column + refused + "column Loan.PaidAmount is missing.");
    EXPECT_EQ(RefusalOf(include),
              "The file '" + include + refused + "column Account.BudgetInclude is missing.");
}

/// Symptom: "Type mismatch".
TEST_F(RestoreTest, ABookWithoutAVersionIsRefusedAndTheMessageSaysWhatItLacks)
{
    const std::string tables =
        "CREATE TABLE Account (AccountID TEXT, Description TEXT, Type TEXT, OpeningBalance MONEY, "
        "CurrentBalance MONEY, Sequence LONG);"
        "CREATE TABLE Trans (Sequence LONG, SubSequence LONG, AccountID TEXT, PostDate DATETIME, "
        "Description TEXT, Amount MONEY, CheckID TEXT, Category TEXT, PayeeName TEXT, Year LONG, "
        "Period LONG, FITID TEXT);"
        "CREATE TABLE Budget (Sequence LONG, Year LONG, Period LONG, CategoryGroup TEXT, Category "
        "TEXT, Amount MONEY);"
        "CREATE TABLE Investment (StockSymbol TEXT, StockName TEXT, PurchaseDate DATETIME, "
        "Quantity DOUBLE, PurchasePrice MONEY, LastPrice MONEY, Total MONEY, AccountID TEXT, "
        "Sequence LONG);"
        "CREATE TABLE _SchemaVersion (Latest LONG);";
    const std::string columns = folder_.Path("columns.mdb");
    Connection::CreateFile(columns, tables +
                                        "CREATE TABLE Loan (Description TEXT, Amount MONEY, "
                                        "InterestRate SINGLE, Sequence LONG);");
    const std::string version = folder_.Path("version.mdb");
    Connection::CreateFile(
        version, tables +
                     "CREATE TABLE Loan (Description TEXT, OriginalAmount MONEY, PaidAmount "
                     "MONEY, InterestRate SINGLE, AccountID TEXT, Sequence LONG);");

    EXPECT_EQ(RefusalOf(columns),
              "The file '" + columns +
                  "' is not a backup of this program: the columns Loan.OriginalAmount, "
                  "Loan.PaidAmount and Loan.AccountID are missing.");
    EXPECT_EQ(RefusalOf(version),
              "The file '" + version +
                  "' is not a backup of this program: the table _SchemaVersion names no version.");
}

// Symptom: the book was restored, and no program could open it.
TEST_F(RestoreTest, ABookThatCannotBeBroughtUpToDateIsRefused)
{
    const auto book = [&](const std::string& name, const std::string& change) {
        std::string path = folder_.Write(name, EmptyDatabase());
        sqlite3* raw = nullptr;
        EXPECT_EQ(sqlite3_open(path.c_str(), &raw), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(raw, change.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(raw);
        return path;
    };
    const std::string none = book("none.mdb", "DROP TABLE _SchemaVersion");
    const std::string old =
        book("old.mdb", "ALTER TABLE _SchemaVersion RENAME COLUMN \"2\" TO \"1\"");

    const std::string refused = "' is not a backup of this program: the table _SchemaVersion ";
    EXPECT_EQ(RefusalOf(none), "The file '" + none + refused + "is missing.");
    EXPECT_EQ(RefusalOf(old), "The file '" + old + refused +
                                  "names version 1, but the table Account is of version 2.");
}

TEST_F(RestoreTest, AnOlderBookAndALaterOneAreRestored)
{
    CloseStore();
    for (const char* change :
         {"ALTER TABLE Account DROP COLUMN BudgetInclude; ALTER TABLE _SchemaVersion RENAME "
          "COLUMN \"2\" TO \"1\";",
          "ALTER TABLE _SchemaVersion RENAME COLUMN \"2\" TO \"7\"; CREATE TABLE CvStep (At TEXT);",
          "DROP TABLE _SchemaVersion; ALTER TABLE Account DROP COLUMN BudgetInclude;"}) {
        const std::string file = folder_.Write("other.mdb", EmptyDatabase());
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(raw, change, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(raw);

        EXPECT_NO_THROW(backups_.Restore(file, Day("2026-11-21"))) << change;
    }
}

TEST_F(RestoreTest, AFileThatIsNotADatabaseIsRefusedWithItsOwnMessage)
{
    const std::string empty = folder_.Write("empty.mdb", "");
    const std::string letter = folder_.Write("letter.txt", "Dear bank");

    EXPECT_EQ(RefusalOf(empty), "The file '" + empty + "' is empty: it is not a backup.");
    EXPECT_EQ(RefusalOf(letter),
              "The file '" + letter + "' is not a backup: it is not a database.");
    EXPECT_EQ(RefusalOf(folder_.Path()),
              "The file '" + folder_.Path() + "' is a folder, not a backup.");
}

TEST_F(RestoreTest, AMissingDatabaseIsRestoredToItsPlace)
{
    const std::string backup = folder_.Write("stick/clb.mdb", EmptyDatabase());
    std::filesystem::remove_all(folder_.Path("db"));

    EXPECT_EQ(backups_.Restore(backup, Day("2026-11-21")), std::nullopt);

    EXPECT_THAT(AccountsIn(folder_.Path("db/clb.mdb")), IsEmpty());
}

TEST_F(RestoreTest, ADatabaseInUseIsNotReplaced)
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
