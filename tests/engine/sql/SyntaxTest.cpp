// What the dialect accepts and what it rejects, with the message.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class SyntaxTest : public EngineTest {};

struct Refusal {
    const char* sql;
    std::int32_t number;
    const char* message;
};

TEST_F(SyntaxTest, ABrokenQueryIsRefusedWhereItBreaks)
{
    const Refusal refusals[] = {
        {"", engine_errors::Syntax, "Syntax error: the statement ends too early."},
        {"SELECT", engine_errors::Syntax, "Syntax error: the statement ends too early."},
        {"SELECT  FROM  ORDER BY ", engine_errors::Syntax,
         "Syntax error near 'FROM' in the statement."},
        {"SELECT * FROM", engine_errors::Syntax, "Syntax error: the statement ends too early."},
        {"SELECT * FROM Trans WHERE", engine_errors::Syntax,
         "Syntax error: the statement ends too early."},
        {"SELECT * FROM Trans WHERE ORDER BY Year", engine_errors::Syntax,
         "Syntax error near 'ORDER' in the statement."},
        {"SELECT * FROM Trans ORDER BY ", engine_errors::Syntax,
         "Syntax error: the statement ends too early."},
        {"SELECT * FROM Trans WHERE Year = 1 Period = 2", engine_errors::Syntax,
         "Syntax error near 'Period' in the statement."},
        {"SELECT * FROM Trans; DELETE FROM Trans", engine_errors::Syntax,
         "Syntax error near 'DELETE' in the statement."},
        {"SELECT * FROM Trans;;", engine_errors::Syntax, "Syntax error near ';' in the statement."},
        {"SELECT * FROM Trans UNION SELECT * FROM Trans", engine_errors::Syntax,
         "Syntax error near 'UNION' in the statement."},
        {"SELECT * FROM Trans WHERE Year IN (SELECT Year FROM Budget)", engine_errors::Syntax,
         "Syntax error near 'SELECT' in the statement."},
        {"SELECT * FROM Trans WHERE Description = 'It's'", engine_errors::Syntax,
         "Syntax error near ''' in the statement."},
        {"SELECT * FROM Trans WHERE Description = 'open", engine_errors::Syntax,
         "Syntax error near ''open' in the statement."},
        {"SELECT * FROM Trans WHERE PostDate = #2006-13-01#", engine_errors::Syntax,
         "Syntax error in date '#2006-13-01#'."},
        {"SELECT * FROM Trans WHERE PostDate = #2006-01-01", engine_errors::Syntax,
         "Syntax error near '#2006-01-01' in the statement."},
        {"SELECT [Year FROM Trans", engine_errors::Syntax,
         "Syntax error near '[Year FROM Trans' in the statement."},
        {"SELECT 12abc FROM Trans", engine_errors::Syntax,
         "Syntax error near '12a' in the statement."},
        {"SELECT Year ! Period FROM Trans", engine_errors::Syntax,
         "Syntax error near '!' in the statement."},
        {"SELECT (Year FROM Trans", engine_errors::Syntax,
         "Syntax error near 'FROM' in the statement."},
        {"PRAGMA journal_mode", engine_errors::Syntax,
         "Syntax error near 'PRAGMA' in the statement."},
        {"ATTACH 'x' AS y", engine_errors::Syntax, "Syntax error near 'ATTACH' in the statement."},
        {"VACUUM", engine_errors::Syntax, "Syntax error near 'VACUUM' in the statement."},
        {"SELECT * FROM Nothing", engine_errors::NoSuchTable,
         "The database engine cannot find the input table or query 'Nothing'. Make sure it exists "
         "and that its name is spelled correctly."},
        {"SELECT * FROM sqlite_master", engine_errors::NoSuchTable,
         "The database engine cannot find the input table or query 'sqlite_master'. Make sure it "
         "exists and that its name is spelled correctly."},
        {"SELECT Colour FROM Trans", engine_errors::NoSuchColumn, "There is no column 'Colour'."},
        {"SELECT Budget.Year FROM Trans", engine_errors::NoSuchColumn,
         "There is no column 'Budget.Year'."},
        {"SELECT rowid FROM Trans", engine_errors::NoSuchColumn, "There is no column 'rowid'."},
        {"SELECT Description FROM Account INNER JOIN Trans ON Account.AccountID = Trans.AccountID",
         engine_errors::Syntax,
         "The specified field 'Description' could refer to more than one table listed in the FROM "
         "clause."},
        {"SELECT * FROM Trans INNER JOIN Trans ON Year = Year", engine_errors::Syntax,
         "The table name 'Trans' stands more than once in the FROM clause."},
        {"SELECT load_extension('x') FROM Trans", engine_errors::Syntax,
         "Undefined function 'load_extension' in expression, or a wrong number of arguments."},
        {"SELECT Left(Description) FROM Trans", engine_errors::Syntax,
         "Undefined function 'Left' in expression, or a wrong number of arguments."},
        {"SELECT Year AS A, Period AS a FROM Trans", engine_errors::Syntax,
         "Duplicate output alias 'A'."},
        {"SELECT Year FROM Trans ORDER BY 2", engine_errors::Syntax,
         "There is no field number 2 to order by."},
        {"SELECT Year FROM Trans ORDER BY 0", engine_errors::Syntax,
         "There is no field number 0 to order by."},
        {"SELECT DISTINCT Year FROM Trans ORDER BY Period", engine_errors::Syntax,
         "ORDER BY conflicts with DISTINCT: it names no field."},
        {"INSERT INTO Trans (Year) VALUES (1, 2)", engine_errors::Syntax,
         "Number of query values and destination fields are not the same."},
        {"INSERT INTO Trans (Year, Year) VALUES (1, 2)", engine_errors::Syntax,
         "Duplicate output destination 'Year'."},
        {"UPDATE Account SET Sequence = 5", engine_errors::NotUpdatable,
         "Cannot update 'Sequence'; field not updatable."},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.sql);
        const auto error = ErrorOf([&] { Run(refusal.sql); });
        EXPECT_EQ(error.Number(), refusal.number);
        EXPECT_STREQ(error.what(), refusal.message);
    }
}

TEST_F(SyntaxTest, AResultSetAcceptsOnlyQueries)
{
    const auto error = ErrorOf([&] { Opened("DELETE FROM Trans"); });

    EXPECT_EQ(error.Number(), engine_errors::Syntax);
    EXPECT_STREQ(error.what(), "Only a SELECT can be opened as a result set.");
}

TEST_F(SyntaxTest, AnExpressionTooDeepIsRefused)
{
    const std::string brackets(2000, '(');

    const auto nested = ErrorOf([&] { Run("SELECT " + brackets + "1 FROM Trans"); });
    const auto signs =
        ErrorOf([&] { Run("SELECT " + std::string(5000, '-') + "Year FROM Trans"); });

    EXPECT_STREQ(nested.what(), "The expression is too complex.");
    EXPECT_STREQ(signs.what(), "The expression is too complex.");
}

TEST_F(SyntaxTest, WordsAndNamesAreTakenWithoutRegardToCase)
{
    Run("insert into TRANS (YEAR, [period]) values (2006, 3);");

    EXPECT_EQ(Rows("Select tRaNs.[Year], PERIOD From trans Where year = 2006"), Lines{"2006|3"});
    EXPECT_EQ(FieldsOf("SELECT YEAR FROM TRANS"), "Year:long");
}

TEST_F(SyntaxTest, YearIsAColumnUnlessABracketFollows)
{
    Run("INSERT INTO Trans (Year, Period, PostDate) VALUES (2005, 12, #2006-01-31#)");

    EXPECT_EQ(Rows("SELECT Year, Year(PostDate), Month(PostDate), Day( PostDate ) FROM Trans"),
              Lines{"2005|2006|1|31"});
}

TEST_F(SyntaxTest, UnnamedExpressionsAreNumbered)
{
    EXPECT_EQ(FieldsOf("SELECT Year + 1, Period, Year * 2 FROM Trans"),
              "Expr1000:long,Period:long,Expr1001:long");
    EXPECT_EQ(FieldsOf("SELECT COUNT(*) FROM Trans"), "Expr1000:long");
}

TEST_F(SyntaxTest, ATextMayContainDoubledQuotesAndUseEitherKind)
{
    Run("INSERT INTO Trans (Description, PayeeName) VALUES ('It''s', \"a \"\"b\"\"\")");

    EXPECT_EQ(Rows("SELECT Description, PayeeName FROM Trans WHERE Description = 'It''s'"),
              Lines{"It's|a \"b\""});
}

TEST_F(SyntaxTest, DatesAreWrittenInThreeForms)
{
    RunAll({"INSERT INTO Trans (PostDate) VALUES (#2006-01-31#)",
            "INSERT INTO Trans (PostDate) VALUES (#2006-01-31 23:15:01#)",
            "INSERT INTO Trans (PostDate) VALUES (#1/31/2007#)"});

    EXPECT_EQ(Rows("SELECT PostDate FROM Trans WHERE PostDate >= #2006-01-31#"),
              (Lines{"2006-01-31", "2006-01-31 23:15:01", "2007-01-31"}));
    EXPECT_EQ(Rows("SELECT PostDate FROM Trans WHERE PostDate > #1/31/2006#"),
              (Lines{"2006-01-31 23:15:01", "2007-01-31"}));
}

TEST_F(SyntaxTest, TopGivesTheFirstRowsOnly)
{
    for (const char* year : {"2003", "2001", "2002"})
        Run("INSERT INTO Trans (Year) VALUES (" + std::string(year) + ")");

    EXPECT_EQ(Rows("SELECT TOP 2 Year FROM Trans ORDER BY Year"), (Lines{"2001", "2002"}));
    EXPECT_EQ(Rows("SELECT TOP 1 Year FROM Trans ORDER BY Year"), Lines{"2001"});
    EXPECT_EQ(Rows("SELECT Year FROM Trans ORDER BY 1 DESC"), (Lines{"2003", "2002", "2001"}));
}

}  // namespace
}  // namespace clb
