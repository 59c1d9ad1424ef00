// Files that were made to harm the user who opens them.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "engine/storage/Database.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

class HostileDatabaseTest : public EngineTest {
protected:
    /// Opens a file that the script has made.
    Connection& Hostile(const std::string& script)
    {
        Connection::CreateFile(Beside("hostile.mdb"), script);
        hostile_.Open("Data Source=" + Beside("hostile.mdb"));
        return hostile_;
    }
    [[nodiscard]] std::string Beside(const std::string& name) const
    {
        return (std::filesystem::path(path_).parent_path() / name).string();
    }
    std::string Refusal(std::string_view sql)
    {
        return ErrorOf([&] { hostile_.Execute(sql); }).what();
    }

    Connection hostile_;
};

/// Otherwise a misspelt column in the file's own schema, or in a query, would count as a text.
TEST_F(HostileDatabaseTest, ANameInQuotesThatIsNotAColumnIsNotAText)
{
    Database storage;
    storage.OpenExisting(path_);

    EXPECT_THROW(storage.Run("CREATE INDEX i ON Trans (\"no column\")"), EngineError);
    EXPECT_THROW(storage.Run("DELETE FROM Trans WHERE \"no column\" = 1"), EngineError);
}

/// A copy that is only read may also come from anywhere.
TEST_F(HostileDatabaseTest, AFileOpenedForReadingIsNotTrustedEither)
{
    Database storage;
    storage.OpenToRead(path_);

    EXPECT_THROW(storage.Run("SELECT \"no column\" FROM Trans"), EngineError);
    EXPECT_THROW(storage.Run("ATTACH DATABASE ':memory:' AS other"), EngineError);
    EXPECT_THROW(storage.Run("SELECT load_extension('/tmp/x.so')"), EngineError);
}

TEST_F(HostileDatabaseTest, AViewIsNotATable)
{
    Hostile("CREATE VIEW Account AS SELECT load_extension('/tmp/x.so') AS AccountID;");

    EXPECT_EQ(ErrorOf([&] { hostile_.Execute("SELECT AccountID FROM Account"); }).Number(),
              engine_errors::NoSuchTable);
}

TEST_F(HostileDatabaseTest, ATableOfAModuleIsNotATable)
{
    Hostile("CREATE VIRTUAL TABLE Account USING fts5(AccountID);");

    EXPECT_EQ(ErrorOf([&] { hostile_.Execute("SELECT AccountID FROM Account"); }).Number(),
              engine_errors::NoSuchTable);
}

TEST_F(HostileDatabaseTest, ATriggerCanCallNothingOutsideTheDatabase)
{
    Hostile(
        "CREATE TABLE Account (AccountID TEXT);"
        "CREATE TRIGGER Harm AFTER INSERT ON Account BEGIN SELECT load_extension('/tmp/x.so'); "
        "END;");

    EXPECT_NE(Refusal("INSERT INTO Account (AccountID) VALUES ('1')"), "");
    EXPECT_TRUE(hostile_.Execute("SELECT AccountID FROM Account").Empty());
}

TEST_F(HostileDatabaseTest, ADefaultCanCallNothingOutsideTheDatabase)
{
    Hostile(
        "CREATE TABLE Account (AccountID TEXT, Description TEXT DEFAULT "
        "(fts3_tokenizer('simple')));");

    EXPECT_NE(Refusal("INSERT INTO Account (AccountID) VALUES ('1')"), "");
    EXPECT_TRUE(hostile_.Execute("SELECT AccountID FROM Account").Empty());
}

TEST_F(HostileDatabaseTest, ATriggerCannotRunForEver)
{
    Hostile(
        "CREATE TABLE Account (AccountID TEXT);"
        "CREATE TRIGGER Harm AFTER INSERT ON Account BEGIN INSERT INTO Account WITH RECURSIVE "
        "n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT x FROM n; END;");

    EXPECT_EQ(Refusal("INSERT INTO Account (AccountID) VALUES ('1')"),
              "The statement is not allowed.");
    EXPECT_TRUE(hostile_.Execute("SELECT AccountID FROM Account").Empty());
}

/// Any file is read, written or rejected, and nothing else happens.
TEST_F(HostileDatabaseTest, FlippedBytesAreReadOrRefused)
{
    for (int number = 0; number < 60; ++number)
        Run("INSERT INTO Trans (AccountID, Description, Amount, Sequence) VALUES ('C1', '" +
            std::string(100, 'x') + "', " + std::to_string(number) + ", " + std::to_string(number) +
            ")");
    connection_.Settle();
    std::ifstream in(path_, std::ios::binary);
    const std::string sound{std::istreambuf_iterator<char>(in), {}};
    std::mt19937 random(20060305);
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        std::string bytes = sound;
        // Half of them in the first page, which holds the schema.
        const std::size_t reach = round % 2 == 0 ? 4096 : bytes.size();
        for (int flip = 0; flip < 4; ++flip)
            bytes[random() % reach] = static_cast<char>(random());
        std::ofstream(Beside("flipped.mdb"), std::ios::binary) << bytes;
        Connection flipped;
        try {
            flipped.Open("Data Source=" + Beside("flipped.mdb"));
            for (const char* table : {"Trans", "Account", "Budget", "Investment", "Loan"})
                RowsOf(*std::make_unique<Recordset>(
                    flipped.Execute(std::string("SELECT * FROM ") + table)));
            flipped.Execute("UPDATE Trans SET Amount = Amount + 1");
            flipped.Execute("INSERT INTO Account (AccountID) VALUES ('9')");
            flipped.Settle();
        } catch (const EngineError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 30);
    EXPECT_LT(refused, 300);
}

}  // namespace
}  // namespace clb
