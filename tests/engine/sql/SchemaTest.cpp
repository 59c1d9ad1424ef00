// CREATE, ALTER and DROP.
#include "engine/storage/Database.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class SchemaTest : public EngineTest {};

TEST_F(SchemaTest, ATableIsCreatedUsedAndDropped)
{
    Run("CREATE TABLE T (ID COUNTER, [Full Name] TEXT(10) NOT NULL DEFAULT 'x', Since DATETIME "
        "DEFAULT #2006-01-31#, Fee MONEY DEFAULT -1.5, Active YESNO DEFAULT YES, CONSTRAINT k "
        "UNIQUE "
        "([Full Name], Fee))");
    Run("INSERT INTO T (Fee) VALUES (2)");
    Run("INSERT INTO T ([Full Name]) VALUES ('y')");

    EXPECT_EQ(Rows("SELECT * FROM T"),
              (Lines{"1|x|2006-01-31|2|True", "2|y|2006-01-31|-1.5|True"}));
    EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO T (Fee) VALUES (2)"); }).Number(),
              engine_errors::Constraint);
    Run("DROP TABLE T");
    EXPECT_EQ(ErrorOf([&] { Run("SELECT * FROM T"); }).Number(), engine_errors::NoSuchTable);
}

TEST_F(SchemaTest, AKeyNeedsNoName)
{
    for (const char* key : {"PRIMARY KEY (a, b)", "UNIQUE (a, b)"}) {
        SCOPED_TRACE(key);
        RunAll({"CREATE TABLE T (a LONG, b LONG, " + std::string(key) + ")",
                "INSERT INTO T VALUES (1, 1)", "INSERT INTO T VALUES (1, 2)"});

        EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO T VALUES (1, 1)"); }).Number(),
                  engine_errors::Constraint);
        Run("DROP TABLE T");
    }
}

TEST_F(SchemaTest, ATableThatExistsIsNotCreatedAgain)
{
    const auto error = ErrorOf([&] { Run("CREATE TABLE trans (a LONG)"); });

    EXPECT_STREQ(error.what(), "Table 'trans' already exists.");
}

TEST_F(SchemaTest, AnAddedColumnHasItsDefaultInEveryRow)
{
    RunAll({"INSERT INTO Loan (Description) VALUES ('Car')",
            "ALTER TABLE Loan ADD COLUMN Paid YESNO NOT NULL DEFAULT YES",
            "ALTER TABLE Loan ADD Fee MONEY DEFAULT 2.5",
            "ALTER TABLE Loan ADD COLUMN Note TEXT(5)"});

    EXPECT_EQ(Rows("SELECT Paid, Fee, Note FROM Loan"), Lines{"True|2.5|-"});
    EXPECT_STREQ(ErrorOf([&] { Run("ALTER TABLE Loan ADD COLUMN fee LONG"); }).what(),
                 "Field 'fee' already exists in table 'Loan'.");
    EXPECT_EQ(ErrorOf([&] { Run("ALTER TABLE Nothing ADD COLUMN a LONG"); }).Number(),
              engine_errors::NoSuchTable);
}

TEST_F(SchemaTest, TheLastColumnCanBeDropped)
{
    Run("ALTER TABLE _SchemaVersion DROP COLUMN 2");

    const Recordset rows = Opened("SELECT * FROM _SchemaVersion");
    EXPECT_TRUE(rows.Fields().empty());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(ErrorOf([&] { Run("SELECT clb_placeholder FROM _SchemaVersion"); }).Number(),
              engine_errors::NoSuchColumn);

    Run("ALTER TABLE _SchemaVersion ADD COLUMN 3 LONG");
    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "3:long");
    EXPECT_EQ(FieldsOf("SELECT [3] FROM _SchemaVersion"), "3:long");
}

TEST_F(SchemaTest, AnIndexedColumnIsNotDropped)
{
    const auto error = ErrorOf([&] { Run("ALTER TABLE Trans DROP COLUMN SubSequence"); });

    EXPECT_EQ(error.Number(), engine_errors::Syntax);
    EXPECT_EQ(ErrorOf([&] { Run("ALTER TABLE Trans DROP COLUMN Nothing"); }).Number(),
              engine_errors::NoSuchColumn);
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM Trans WHERE SubSequence = 1"), Lines{"0"});
}

TEST_F(SchemaTest, AnAlteredColumnConvertsEveryRow)
{
    RunAll({"CREATE TABLE T (a TEXT, b MONEY DEFAULT 1.5, c DOUBLE)",
            "INSERT INTO T VALUES ('12.5', 2.25, 0.1)", "INSERT INTO T VALUES (NULL, -3, 1e10)"});

    RunAll({"ALTER TABLE T ALTER COLUMN a MONEY", "ALTER TABLE T ALTER b DOUBLE",
            "ALTER TABLE T ALTER COLUMN c Single", "INSERT INTO T (a) VALUES (1)"});

    EXPECT_EQ(FieldsOf("SELECT * FROM T"), "a:money,b:double,c:single");
    EXPECT_EQ(Rows("SELECT * FROM T"), (Lines{"12.5|2.25|0.1", "-|-3|1E+10", "1|1.5|-"}));
}

TEST_F(SchemaTest, AValueThatDoesNotConvertDoesNotChangeTheTable)
{
    RunAll(
        {"CREATE TABLE T (a TEXT)", "INSERT INTO T VALUES ('1')", "INSERT INTO T VALUES ('one')"});

    const auto kind = ErrorOf([&] { Run("ALTER TABLE T ALTER COLUMN a LONG"); });
    const auto width = ErrorOf([&] { Run("ALTER TABLE T ALTER COLUMN a TEXT(2)"); });

    EXPECT_EQ(kind.Number(), engine_errors::TypeMismatch);
    EXPECT_EQ(width.Number(), engine_errors::TextTooLong);
    EXPECT_EQ(FieldsOf("SELECT * FROM T"), "a:text");
    EXPECT_EQ(Rows("SELECT * FROM T"), (Lines{"1", "one"}));
}

TEST_F(SchemaTest, AnAlteredTableKeepsOrderCounterDefaultsIndicesAndTriggers)
{
    RunAll({"INSERT INTO Loan (Description, AccountID) VALUES ('b', '1')",
            "INSERT INTO Loan (Description, AccountID) VALUES ('a', '1')",
            "INSERT INTO Loan (Description) VALUES ('gone')",
            "DELETE FROM Loan WHERE Description = 'gone'",
            "CREATE UNIQUE INDEX LoanName ON Loan (Description)",
            "INSERT INTO Account (AccountID) VALUES ('1')"});

    Run("ALTER TABLE Loan ALTER COLUMN InterestRate DOUBLE");
    Run("ALTER TABLE Account ALTER COLUMN Description TEXT(40)");

    Run("INSERT INTO Loan (Description) VALUES ('c')");
    Run("UPDATE Account SET AccountID = '7'");
    EXPECT_EQ(Rows("SELECT Description, OriginalAmount, AccountID, Sequence FROM Loan"),
              (Lines{"b|0|7|1", "a|0|7|2", "c|0|-|4"}));
    EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO Loan (Description) VALUES ('a')"); }).Number(),
              engine_errors::Constraint);
    Run("DROP INDEX LoanName ON Loan");
    Run("INSERT INTO Loan (Description) VALUES ('a')");
}

TEST_F(SchemaTest, AnAlteredTableKeepsItsPrimaryKeyAndItsOtherKeys)
{
    Run("CREATE TABLE T (a LONG, b LONG, c TEXT, CONSTRAINT u UNIQUE (c), CONSTRAINT p PRIMARY KEY "
        "(a, b))");
    Run("ALTER TABLE T ALTER COLUMN c TEXT(9)");
    connection_.Settle();

    Database stored;
    stored.OpenToRead(path_);
    Query keys = stored.Prepare(
        "SELECT group_concat(origin), (SELECT group_concat(name) FROM pragma_table_info('T') WHERE "
        "pk > 0) FROM (SELECT origin FROM pragma_index_list('T') ORDER BY origin)");
    ASSERT_TRUE(stored.Step(keys));
    EXPECT_EQ(keys.Text(0), "pk,u");
    EXPECT_EQ(keys.Text(1), "a,b");
}

TEST_F(SchemaTest, ATableWithClausesThatWouldBeLostIsNotAltered)
{
    for (const std::string clause : {"CHECK (a > 0)", "REFERENCES O(b)", "COLLATE NOCASE"}) {
        const std::string path = path_ + std::to_string(clause.size());
        Connection::CreateFile(
            path, "CREATE TABLE O (b LONG); CREATE TABLE T (a LONG " + clause + ", t TEXT)");
        Connection other;
        other.Open("Data Source=" + path);

        const auto error = ErrorOf([&] { other.Execute("ALTER TABLE T ALTER COLUMN t TEXT(9)"); });

        EXPECT_EQ(error.what(), "The table 'T' has a " + clause.substr(0, clause.find(' ')) +
                                    " clause; its columns keep their types.");
    }
}

TEST_F(SchemaTest, ACounterStaysACounterAndNoColumnBecomesOne)
{
    for (const char* column : {"Sequence LONG", "Description COUNTER"})
        EXPECT_STREQ(
            ErrorOf([&] { Run("ALTER TABLE Loan ALTER COLUMN " + std::string(column)); }).what(),
            "The type of a counter cannot be changed.");
}

TEST_F(SchemaTest, AnIndexIsCreatedAndDropped)
{
    Run("CREATE INDEX byName ON Account (Description, Type DESC)");

    EXPECT_STREQ(ErrorOf([&] { Run("DROP INDEX byName ON Trans"); }).what(),
                 "No such index 'byName' on table 'Trans'.");
    EXPECT_EQ(ErrorOf([&] { Run("CREATE INDEX other ON Account (Colour)"); }).Number(),
              engine_errors::NoSuchColumn);
    Run("DROP INDEX BYNAME ON account");
    EXPECT_EQ(ErrorOf([&] { Run("DROP INDEX byName ON Account"); }).Number(),
              engine_errors::Syntax);
}

TEST_F(SchemaTest, AnotherProgramsChangeOfTheSchemaIsNoticed)
{
    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "2:long");

    Connection other = Another();
    other.Execute("ALTER TABLE _SchemaVersion ADD COLUMN 3 LONG");
    other.Execute("CREATE TABLE T (a LONG)");
    other.Settle();

    EXPECT_EQ(FieldsOf("SELECT * FROM _SchemaVersion"), "2:long,3:long");
    EXPECT_EQ(FieldsOf("SELECT * FROM T"), "a:long");
}

TEST_F(SchemaTest, AnOpenResultSetDoesNotHinderAChange)
{
    Run("INSERT INTO Loan (Description) VALUES ('Car')");
    Recordset loans = Opened("SELECT Description FROM Loan");

    Run("ALTER TABLE Loan ADD COLUMN Note TEXT");
    loans.Set(0, std::string("Boat"));
    loans.Update();

    EXPECT_EQ(Rows("SELECT Description, Note FROM Loan"), Lines{"Boat|-"});
}

}  // namespace
}  // namespace clb
