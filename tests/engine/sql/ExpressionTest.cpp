#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

class ExpressionTest : public EngineTest {
protected:
    ExpressionTest()
    {
        RunAll({"CREATE TABLE T (id LONG, x TEXT, n LONG, y YESNO, t DATETIME)",
                "INSERT INTO T VALUES (1, 'Grocer', 5, YES, #2006-01-31#)",
                "INSERT INTO T VALUES (2, 'grocery', NULL, NO, #2006-02-28#)",
                "INSERT INTO T VALUES (3, NULL, 7, YES, NULL)",
                "INSERT INTO T VALUES (4, '50% off', 5, NO, #2005-12-31 12:00:00#)"});
    }

    /// Returns the ids of the rows that meet the condition.
    std::string Ids(const std::string& condition)
    {
        std::string ids;
        for (const std::string& line : Rows("SELECT id FROM T WHERE " + condition))
            ids += line;
        return ids;
    }
    std::string Of(const std::string& expression, int id = 1)
    {
        return Rows("SELECT " + expression + " FROM T WHERE id = " + std::to_string(id)).at(0);
    }
};

TEST_F(ExpressionTest, ConditionsKeepTheirPrecedence)
{
    EXPECT_EQ(Ids("NOT y = TRUE"), "24");
    EXPECT_EQ(Ids("NOT y = FALSE AND n = 5"), "1");
    EXPECT_EQ(Ids("id = 1 OR id = 2 AND n = 7"), "1");
    EXPECT_EQ(Ids("(id = 1 OR id = 2) AND n = 5"), "1");
    EXPECT_EQ(Ids("n = 1 + 2 * 2"), "14");
    EXPECT_EQ(Ids("n = 2 * 2 + 1"), "14");
    EXPECT_EQ(Ids("id & n = '15'"), "1");
    EXPECT_EQ(Ids("n = - -5"), "14");
    EXPECT_EQ(Ids("id = - TRUE"), "1");
    EXPECT_EQ(Ids("id = -(-n) - 4"), "13");
    EXPECT_EQ(Ids("false"), "");
    EXPECT_EQ(Ids("true"), "1234");
    EXPECT_EQ(Ids("1"), "1234");
    EXPECT_EQ(Ids("NULL"), "");
}

TEST_F(ExpressionTest, ANumberTooLargeToBeScaledIsRoundedToItself)
{
    EXPECT_EQ(Of("Round(1E308, 15)"), "1E+308");
    EXPECT_EQ(Of("Round(-1E308, 1)"), "-1E+308");
}

TEST_F(ExpressionTest, NullIsNeitherEqualNorUnequal)
{
    EXPECT_EQ(Ids("n <> 5"), "3");
    EXPECT_EQ(Ids("n = NULL"), "");
    EXPECT_EQ(Ids("n IS NULL"), "2");
    EXPECT_EQ(Ids("n IS NOT NULL"), "134");
    EXPECT_EQ(Ids("IsNull(x)"), "3");
    EXPECT_EQ(Ids("x NOT LIKE 'g%'"), "4");
    EXPECT_EQ(Of("n + 1", 2), "-");
}

TEST_F(ExpressionTest, TextsAreComparedExactly)
{
    EXPECT_EQ(Ids("x = 'Grocer'"), "1");
    EXPECT_EQ(Ids("x = 'grocer'"), "");
    EXPECT_EQ(Ids("x = 'Grocer '"), "");
    EXPECT_EQ(Ids("x < 'a'"), "14");
}

TEST_F(ExpressionTest, LikeTakesWildcardsAndIgnoresCase)
{
    EXPECT_EQ(Ids("x LIKE 'GROCER'"), "1");
    EXPECT_EQ(Ids("x LIKE 'gro%'"), "12");
    EXPECT_EQ(Ids("x LIKE '_rocer_'"), "2");
    EXPECT_EQ(Ids("n LIKE '5%'"), "14");
    EXPECT_EQ(Ids("t LIKE '2006-%'"), "12");
}

TEST_F(ExpressionTest, ListsAndRanges)
{
    EXPECT_EQ(Ids("id IN (1, 3, 9)"), "13");
    EXPECT_EQ(Ids("id NOT IN (1, 3)"), "24");
    EXPECT_EQ(Ids("x IN ('Grocer', '50% off')"), "14");
    EXPECT_EQ(Ids("id BETWEEN 2 AND 3"), "23");
    EXPECT_EQ(Ids("id NOT BETWEEN 2 AND 3 AND n = 5"), "14");
    EXPECT_EQ(Ids("t BETWEEN #2006-01-01# AND #2006-01-31#"), "1");
}

TEST_F(ExpressionTest, AListMayBeLong)
{
    std::string list = "0";
    for (int i = 2; i < 3000; ++i)
        list += ", " + std::to_string(i);

    EXPECT_EQ(Ids("id IN (" + list + ")"), "234");
}

TEST_F(ExpressionTest, JoinedTextsTakeNullAsEmpty)
{
    EXPECT_EQ(Of("x & n & '!'"), "Grocer5!");
    EXPECT_EQ(Of("x & n & '!'", 2), "grocery!");
    EXPECT_EQ(Of("x & t & y"), "Grocer2006-01-31True");
    EXPECT_EQ(Of("'a' + 'b'"), "ab");
    EXPECT_EQ(Of("x + 'b'", 3), "-");
}

TEST_F(ExpressionTest, FunctionsGiveTheirResults)
{
    EXPECT_EQ(Of("Len(x)"), "6");
    EXPECT_EQ(Of("Left(x, 3)"), "Gro");
    EXPECT_EQ(Of("Left(x, 99)"), "Grocer");
    EXPECT_EQ(Of("Right(x, 2)"), "er");
    EXPECT_EQ(Of("Right(x, 0)"), "");
    EXPECT_EQ(Of("Mid(x, 2, 3)"), "roc");
    EXPECT_EQ(Of("Mid(x, 5)"), "er");
    EXPECT_EQ(Of("Mid(x, 50)"), "");
    EXPECT_EQ(Of("UCase(x)"), "GROCER");
    EXPECT_EQ(Of("LCase(x)"), "grocer");
    EXPECT_EQ(Of("Trim('  a ') & '|' & LTrim('  a ') & '|' & RTrim('  a ')"), "a|a |  a");
    EXPECT_EQ(Of("Abs(-n)"), "5");
    EXPECT_EQ(Of("Round(2.5)"), "2");
    EXPECT_EQ(Of("Round(2.567, 2)"), "2.57");
    EXPECT_EQ(Of("IIf(n = 5, 'five', 'other')"), "five");
    EXPECT_EQ(Of("IIf(n = 5, 'five', 'other')", 2), "other");
    EXPECT_EQ(Of("Nz(n, 9)", 2), "9");
    EXPECT_EQ(Of("Nz(n)", 2), "0");
    EXPECT_EQ(Of("Nz(x)", 3), "");
    EXPECT_EQ(Of("CLng('12.5') + 1"), "13");
    EXPECT_EQ(Of("CCur('0.00005')"), "0");
    EXPECT_EQ(Of("Year(t) & '-' & Month(t) & '-' & Day(t)", 4), "2005-12-31");
    EXPECT_EQ(Of("Month(t)", 3), "-");
}

TEST_F(ExpressionTest, FunctionsCountCharacters)
{
    Run("UPDATE T SET x = 'äöüß' WHERE id = 1");

    EXPECT_EQ(Of("Left(x, 2) & Right(x, 1) & Mid(x, 3, 1) & Len(x)"), "äößü4");
}

TEST_F(ExpressionTest, AnImpossibleArgumentIsAnError)
{
    EXPECT_STREQ(ErrorOf([&] { Of("Left(x, -1)"); }).what(),
                 "Invalid procedure call: a length or position is negative.");
    EXPECT_STREQ(ErrorOf([&] { Of("Mid(x, 0)"); }).what(),
                 "Invalid procedure call: positions count from 1.");
    EXPECT_EQ(ErrorOf([&] { Of("CLng(x)"); }).Number(), engine_errors::TypeMismatch);
    EXPECT_STREQ(ErrorOf([&] { Of("n / 0"); }).what(), "Division by zero");
}

TEST_F(ExpressionTest, AConditionIsAYesNoField)
{
    EXPECT_EQ(FieldsOf("SELECT n = 5 AS a, NOT y AS b, x IS NULL AS c FROM T"),
              "a:boolean,b:boolean,c:boolean");
    EXPECT_EQ(Of("n = 5"), "True");
    EXPECT_EQ(Of("y = (n = 5)"), "True");
    EXPECT_EQ(Of("n + y"), "4");
}

}  // namespace
}  // namespace clb
