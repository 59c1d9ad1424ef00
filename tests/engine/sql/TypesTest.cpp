// Column types: their values, conversions, and kinds that do not fit together.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class TypesTest : public EngineTest {};

TEST_F(TypesTest, EveryTypeWordMeansOneOfTheTypes)
{
    Run("CREATE TABLE T (a COUNTER, b LONG, c INTEGER, d INT, e SHORT, f SMALLINT, g BYTE, h "
        "MONEY, "
        "i CURRENCY, j DOUBLE, k FLOAT, l NUMBER, m NUMERIC, n SINGLE, o REAL, p DATETIME, q DATE, "
        "r TIME, s TIMESTAMP, t YESNO, u BIT, v LOGICAL, w BOOLEAN, x TEXT, y VARCHAR(20), z CHAR, "
        "aa STRING, bb MEMO, cc LONGTEXT, dd text(3))");

    EXPECT_EQ(FieldsOf("SELECT * FROM T"),
              "a:long,b:long,c:long,d:long,e:long,f:long,g:long,h:money,i:money,j:double,k:double,"
              "l:double,m:double,n:single,o:single,p:date,q:date,r:date,s:date,t:boolean,u:boolean,"
              "v:boolean,w:boolean,x:text,y:text,z:text,aa:text,bb:text,cc:text,dd:text");
    const Recordset rows = Opened("SELECT * FROM T");
    EXPECT_TRUE(rows.Fields()[0].counter);
    EXPECT_FALSE(rows.Fields()[1].counter);
    EXPECT_EQ(rows.Fields()[rows.FieldIndex("y")].width, 20U);
    EXPECT_EQ(rows.Fields()[rows.FieldIndex("dd")].width, 3U);
    EXPECT_EQ(rows.Fields()[rows.FieldIndex("x")].width, 0U);
}

TEST_F(TypesTest, ValuesComeBackInTheirColumnsType)
{
    RunAll(
        {"CREATE TABLE T (l LONG, m MONEY, d DOUBLE, s SINGLE, t DATETIME, y YESNO, x TEXT)",
         "INSERT INTO T VALUES (-2147483648, 0.0001, 0.1, 0.1, #2006-02-28 01:02:03#, YES, '')"});

    const Recordset rows = Opened("SELECT * FROM T");

    EXPECT_EQ(rows.Get("l"), Value(std::int32_t{-2147483647 - 1}));
    EXPECT_EQ(rows.Get("m"), Value(Money::FromScaled(1)));
    EXPECT_EQ(rows.Get("d"), Value(0.1));
    EXPECT_EQ(rows.Get("s"), Value(0.1F));
    EXPECT_EQ(rows.Get("t"), Value(*Date::Of(2006, 2, 28, 1, 2, 3)));
    EXPECT_EQ(rows.Get("y"), Value(true));
    EXPECT_EQ(rows.Get("x"), Value(std::string()));
}

TEST_F(TypesTest, AYesNoColumnAcceptsYesNoTrueFalseAndNumbers)
{
    Run("CREATE TABLE T (y YESNO)");
    for (const char* value : {"YES", "NO", "TRUE", "FALSE", "-1", "0", "1", "'Yes'"})
        Run("INSERT INTO T (y) VALUES (" + std::string(value) + ")");

    EXPECT_EQ(Rows("SELECT y FROM T"),
              (Lines{"True", "False", "True", "False", "True", "False", "True", "True"}));
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM T WHERE y = TRUE"), Lines{"5"});
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM T WHERE y"), Lines{"5"});
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM T WHERE NOT y = -1"), Lines{"3"});
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM T WHERE y = 1"), Lines{"5"});
    EXPECT_EQ(Rows("SELECT SUM(y) FROM T"), Lines{"-5"});
}

TEST_F(TypesTest, TextsAreReadAsTheColumnsTypeWhenStored)
{
    RunAll({"CREATE TABLE T (l LONG, m MONEY, d DOUBLE, t DATETIME, x TEXT)",
            "INSERT INTO T VALUES ('12', ' 1,234.56 ', '1e3', '2006-01-31', 12.50)"});

    EXPECT_EQ(Rows("SELECT * FROM T"), Lines{"12|1234.56|1000|2006-01-31|12.50"});
}

TEST_F(TypesTest, AmountsTakeExponents)
{
    RunAll({"CREATE TABLE T (m MONEY)", "INSERT INTO T VALUES (12.5E1)",
            "INSERT INTO T VALUES (125e-1)", "INSERT INTO T VALUES (0.00125E+3)",
            "INSERT INTO T VALUES (12E12)"});

    EXPECT_EQ(Rows("SELECT m FROM T"), (Lines{"125", "12.5", "1.25", "12000000000000"}));
}

TEST_F(TypesTest, NumbersAreRoundedHalfToEvenWhenStored)
{
    RunAll({"CREATE TABLE T (l LONG, m MONEY)", "INSERT INTO T VALUES (2.5, 0.00005)",
            "INSERT INTO T VALUES (3.5, 0.00015)", "INSERT INTO T VALUES (-2.5, -0.00015)"});

    EXPECT_EQ(Rows("SELECT * FROM T"), (Lines{"2|0", "4|0.0002", "-2|-0.0002"}));
}

struct BadValue {
    const char* column;
    const char* value;
    std::int32_t number;
};

TEST_F(TypesTest, AValueThatDoesNotFitIsRefusedAndChangesNothing)
{
    Run("CREATE TABLE T (l LONG, m MONEY, s SINGLE, t DATETIME, y YESNO, x TEXT(5))");
    const BadValue values[] = {
        {"l", "2147483648", engine_errors::Overflow},
        {"l", "-2147483649", engine_errors::Overflow},
        {"l", "'abc'", engine_errors::TypeMismatch},
        {"l", "''", engine_errors::TypeMismatch},
        {"l", "#2006-01-01#", engine_errors::TypeMismatch},
        {"m", "922337203685477.5808", engine_errors::Overflow},
        {"m", "'-530,86'", engine_errors::TypeMismatch},
        {"s", "1e39", engine_errors::Overflow},
        {"t", "5", engine_errors::TypeMismatch},
        {"t", "'2006-02-30'", engine_errors::TypeMismatch},
        {"t", "YES", engine_errors::TypeMismatch},
        {"y", "'perhaps'", engine_errors::TypeMismatch},
        {"y", "#2006-01-01#", engine_errors::TypeMismatch},
        {"x", "'123456'", engine_errors::TextTooLong},
        {"x", "123456", engine_errors::TextTooLong},
        {"x", "'12' & '3456'", engine_errors::TextTooLong},
    };
    for (const BadValue& bad : values) {
        SCOPED_TRACE(std::string(bad.column) + " <- " + bad.value);
        const std::string sql =
            "INSERT INTO T (" + std::string(bad.column) + ") VALUES (" + bad.value + ")";
        EXPECT_EQ(ErrorOf([&] { Run(sql); }).Number(), bad.number);
    }
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM T"), Lines{"0"});
}

TEST_F(TypesTest, ATextTooLongNamesItsColumnAndTheWidth)
{
    const auto error = ErrorOf(
        [&] { Run("INSERT INTO Trans (Category) VALUES ('" + std::string(51, 'x') + "')"); });

    EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E57));
    EXPECT_STREQ(error.what(),
                 "The field is too small to accept the amount of data you attempted to add. The "
                 "field 'Category' takes 50 characters.");
}

TEST_F(TypesTest, AWidthCountsCharactersNotBytes)
{
    Run("CREATE TABLE T (x TEXT(3))");

    Run("INSERT INTO T (x) VALUES ('äöü')");

    EXPECT_EQ(Rows("SELECT x, Len(x) FROM T"), Lines{"äöü|3"});
    EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO T (x) VALUES ('äöüß')"); }).Number(),
              engine_errors::TextTooLong);
}

TEST_F(TypesTest, KindsThatDoNotFitTogetherAreRefusedBeforeAnythingRuns)
{
    Run("INSERT INTO Trans (Year) VALUES (2006)");
    for (const char* condition :
         {"Year = '2006'", "Description = 5", "PostDate = 5", "PostDate = '2006-01-01'",
          "Amount = #2006-01-01#", "Description < 5.5", "Year BETWEEN 1 AND 'x'",
          "Year IN (1, 'x')", "Year IN ('1', '2')", "Year BETWEEN '1' AND '2'",
          "Description = TRUE", "Description", "Year = 1 AND Description", "NOT PostDate",
          "-Description = 1", "Description * 2 = 1", "PostDate + 1 = 2", "Year(Description) = 1",
          "IIf(Year, 1, 'x') = 1"}) {
        SCOPED_TRACE(condition);
        const std::string sql = "UPDATE Trans SET Year = 1 WHERE " + std::string(condition);
        const auto error = ErrorOf([&] { Run(sql); });
        EXPECT_EQ(error.Number(), engine_errors::TypeMismatch);
        EXPECT_STREQ(error.what(), "Data type mismatch in criteria expression.");
    }
    EXPECT_EQ(Rows("SELECT Year FROM Trans"), Lines{"2006"});
}

TEST_F(TypesTest, WholeNumbersAndFractionsAreComparedByValue)
{
    RunAll({"CREATE TABLE T (l LONG, d DOUBLE, s SINGLE, m MONEY)",
            "INSERT INTO T VALUES (2, 2, 2, 2)", "INSERT INTO T VALUES (3, 2.5, 0.1, 2.5)"});

    EXPECT_EQ(Rows("SELECT l FROM T WHERE l = 2.0"), Lines{"2"});
    EXPECT_EQ(Rows("SELECT l FROM T WHERE l < 2.5"), Lines{"2"});
    EXPECT_EQ(Rows("SELECT l FROM T WHERE l = d"), Lines{"2"});
    EXPECT_EQ(Rows("SELECT l FROM T WHERE m = l"), Lines{"2"});
    EXPECT_EQ(Rows("SELECT l FROM T WHERE m = d"), (Lines{"2", "3"}));
    EXPECT_EQ(Rows("SELECT l FROM T WHERE s = 0.1"), Lines{"3"});
}

TEST_F(TypesTest, SumsAndLargestKeepTheirTypesAndAnEmptySumIsNull)
{
    RunAll({"CREATE TABLE T (l LONG, d DOUBLE, s SINGLE, m MONEY, x TEXT, t DATETIME)"});
    const char* sql =
        "SELECT SUM(l) AS a, SUM(d) AS b, SUM(s) AS c, SUM(m) AS e, AVG(m) AS f, MAX(x) AS g, "
        "MIN(t) AS h, COUNT(x) AS i, COUNT(*) AS j, MAX(l) + 1 AS k FROM T";

    EXPECT_EQ(FieldsOf(sql),
              "a:long,b:double,c:double,e:money,f:double,g:text,h:date,i:long,"
              "j:long,k:long");
    EXPECT_EQ(Rows(sql), Lines{"-|-|-|-|-|-|-|0|0|-"});
}

TEST_F(TypesTest, AWholeNumberSumBeyondItsRangeIsAnError)
{
    RunAll({"CREATE TABLE T (l LONG)", "INSERT INTO T VALUES (2147483647)",
            "INSERT INTO T VALUES (1)"});

    EXPECT_EQ(Rows("SELECT l + 0, -l - 1 FROM T WHERE l > 1"), Lines{"2147483647|-2147483648"});
    EXPECT_EQ(ErrorOf([&] { Rows("SELECT SUM(l) FROM T"); }).Number(), engine_errors::Overflow);
    EXPECT_EQ(ErrorOf([&] { Rows("SELECT MAX(l) + 1 FROM T"); }).Number(), engine_errors::Overflow);
    EXPECT_EQ(ErrorOf([&] { Rows("SELECT l * 2 FROM T"); }).Number(), engine_errors::Overflow);
}

}  // namespace
}  // namespace clb
