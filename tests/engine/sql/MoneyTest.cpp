// Money is exact from the text of a query to the value, and overflow is an error.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kLargest = "922337203685477.5807";

class MoneyTest : public EngineTest {
protected:
    MoneyTest() { Run("CREATE TABLE M (a MONEY, b MONEY, n LONG, d DOUBLE)"); }

    void Add(const std::string& a) { Run("INSERT INTO M (a) VALUES (" + a + ")"); }
    /// Returns how many rows meet the condition.
    std::string CountOf(const std::string& condition)
    {
        return ToText(Single("SELECT COUNT(*) FROM M WHERE " + condition));
    }
};

TEST_F(MoneyTest, AmountsComeBackToTheLastDecimal)
{
    for (const char* amount :
         {"0.1", "0.2", "-0.0001", "123456789012.3456", kLargest, "-922337203685477.5807"})
        Add(amount);

    EXPECT_EQ(Rows("SELECT a FROM M"), (Lines{"0.1", "0.2", "-0.0001", "123456789012.3456",
                                              "922337203685477.5807", "-922337203685477.5807"}));
}

TEST_F(MoneyTest, AmountsAreComparedExactly)
{
    for (const char* amount : {"0.3", "922337203685477.5806", kLargest})
        Add(amount);

    EXPECT_EQ(CountOf("a = 0.1 + 0.2"), "1");
    EXPECT_EQ(CountOf("a - 0.1 - 0.2 = 0"), "1");
    EXPECT_EQ(CountOf("-(0.5 - 0.8) = a"), "1");
    EXPECT_EQ(CountOf("a = 922337203685477.5806"), "1");
    EXPECT_EQ(CountOf("a < 922337203685477.5807"), "2");
    EXPECT_EQ(CountOf("a IN (0.3, 922337203685477.5807)"), "2");
}

TEST_F(MoneyTest, ALiteralFinerThanFourDecimalsEqualsNoAmount)
{
    for (const char* amount : {"-1.2346", "-1.2345", "0", "1.2345", "1.2346"})
        Add(amount);
    Run("INSERT INTO M (b) VALUES (1)");

    EXPECT_EQ(CountOf("a = 1.23450001"), "0");
    EXPECT_EQ(CountOf("a <> 1.23450001"), "5");
    EXPECT_EQ(CountOf("a < 1.23450001"), "4");
    EXPECT_EQ(CountOf("a <= 1.23450001"), "4");
    EXPECT_EQ(CountOf("a > 1.23450001"), "1");
    EXPECT_EQ(CountOf("a >= 1.23450001"), "1");
    EXPECT_EQ(CountOf("1.23450001 > a"), "4");
    EXPECT_EQ(CountOf("a < -1.23450001"), "1");
    EXPECT_EQ(CountOf("a > -1.23450001"), "4");
    EXPECT_EQ(CountOf("a IN (0, 1.23450001)"), "1");
    EXPECT_EQ(CountOf("a NOT IN (0, 1.23450001)"), "4");
    EXPECT_EQ(CountOf("a BETWEEN -1.23450001 AND 1.23450001"), "3");
    EXPECT_EQ(CountOf("NOT a = 1.23450001"), "5");
}

TEST_F(MoneyTest, ALiteralBeyondTheRangeIsGreaterThanEveryAmount)
{
    for (const char* amount : {kLargest, "-922337203685477.5807"})
        Add(amount);

    EXPECT_EQ(CountOf("a < 922337203685477.5808"), "2");
    EXPECT_EQ(CountOf("a > -1e300"), "2");
    EXPECT_EQ(CountOf("a = 99999999999999999999"), "0");
    EXPECT_EQ(CountOf("a >= 922337203685477.5808"), "0");
    EXPECT_EQ(CountOf("a < -922337203685477.5809"), "0");
}

TEST_F(MoneyTest, LiteralsWithTheSameAmountAreTheSame)
{
    Add("1000");

    EXPECT_EQ(CountOf("a = 1000"), "1");
    EXPECT_EQ(CountOf("a = 1000.00000"), "1");
    EXPECT_EQ(CountOf("a = 1e3"), "1");
    EXPECT_EQ(CountOf("a = 0.1E+4"), "1");
    EXPECT_EQ(CountOf("-a = -1000"), "1");
}

TEST_F(MoneyTest, SumsAndDifferencesAreExactMoney)
{
    for (int i = 0; i < 10; ++i)
        Add("0.1");

    EXPECT_EQ(Rows("SELECT SUM(a), SUM(a - 0.0001), MAX(a) + 1, MIN(a) - 0.05 FROM M"),
              Lines{"1|0.999|1.1|0.05"});
    EXPECT_EQ(FieldsOf("SELECT a + 1 AS p, a - 0.5 AS q, n + a AS r, -a AS s FROM M"),
              "p:money,q:money,r:money,s:money");
}

TEST_F(MoneyTest, AnOverflowIsAnErrorAndNeverAWrongSum)
{
    Run("INSERT INTO M (a, b) VALUES (922337203685477.5807, 0.0001)");
    Run("INSERT INTO M (a, b) VALUES (-922337203685477.5807, 0.0002)");

    for (const char* sql :
         {"SELECT a + b FROM M WHERE a > 0", "SELECT a - b FROM M WHERE a < 0",
          "SELECT SUM(a) FROM M WHERE a > 0 OR b > 5 HAVING SUM(a + b) > 0", "SELECT a * 2 FROM M",
          "SELECT a * 1.5 FROM M", "SELECT a * a FROM M", "UPDATE M SET a = a + b WHERE a > 0"}) {
        SCOPED_TRACE(sql);
        const auto error = ErrorOf([&] { Run(sql); });
        EXPECT_EQ(error.Number(), engine_errors::Overflow);
        EXPECT_STREQ(error.what(), "Overflow");
    }
    Add(kLargest);
    EXPECT_EQ(ErrorOf([&] { Run("SELECT SUM(a) FROM M WHERE a > 0"); }).Number(),
              engine_errors::Overflow);
}

// Symptom: a sum failed if a partial total exceeded the range, even if the final total did not.
TEST_F(MoneyTest, OnlyTheWholeOfASumMustFit)
{
    for (const char* amount : {kLargest, kLargest, kLargest, "-922337203685477.5807",
                               "-922337203685477.5807", "-922337203685477.5807", "0.0001"})
        Add(amount);
    Run("UPDATE M SET n = 2147483647");

    EXPECT_EQ(Rows("SELECT SUM(a), SUM(-a) FROM M"), Lines{"0.0001|-0.0001"});
    EXPECT_EQ(Rows("SELECT a, SUM(a) FROM M WHERE a < 1 AND a > -1 GROUP BY a"),
              Lines{"0.0001|0.0001"});
    EXPECT_EQ(Rows("SELECT SUM(a), SUM(b) FROM M WHERE false"), Lines{"-|-"});
    EXPECT_EQ(Rows("SELECT SUM(b) FROM M"), Lines{"-"});
    EXPECT_EQ(ErrorOf([&] { Run("SELECT SUM(a) FROM M WHERE a > 0"); }).Number(),
              engine_errors::Overflow);
    EXPECT_EQ(ErrorOf([&] { Run("SELECT SUM(n) FROM M"); }).Number(), engine_errors::Overflow);
    // A failed sum does not change a later error.
    EXPECT_EQ(ErrorOf([&] { Run("SELECT a FROM Missing"); }).Number(), engine_errors::NoSuchTable);
}

TEST_F(MoneyTest, ProductsAreExactOrRoundedHalfToEven)
{
    Run("INSERT INTO M (a, n, d) VALUES (0.0001, 3, 2.5)");
    Run("INSERT INTO M (a, n, d) VALUES (0.0003, -7, 0.5)");
    Run("INSERT INTO M (a, n, d) VALUES (123456789012.3456, 1000, 1)");

    EXPECT_EQ(Rows("SELECT a * n, a * 0.5, a * d, 2 * a FROM M"),
              (Lines{"0.0003|0|0.0002|0.0002", "-0.0021|0.0002|0.0002|0.0006",
                     "123456789012345.6|61728394506.1728|123456789012.3456|246913578024.6912"}));
    // As a binary fraction, a tenth is slightly too large.
    Run("INSERT INTO M (a) VALUES (0.0005)");
    EXPECT_EQ(Rows("SELECT a * 0.1, 0.1 * a FROM M WHERE a = 0.0005"), Lines{"0|0"});
    EXPECT_EQ(
        FieldsOf("SELECT a * n AS p, a * 0.5 AS q, a * d AS r, a * a AS s FROM M WHERE false"),
        "p:money,q:money,r:money,s:money");
}

TEST_F(MoneyTest, QuotientsAndAveragesAreDouble)
{
    Add("1");
    Add("2");

    EXPECT_EQ(FieldsOf("SELECT a / 3 AS p, a / a AS q FROM M"), "p:double,q:double");
    EXPECT_EQ(Rows("SELECT AVG(a) FROM M"), Lines{"1.5"});
    EXPECT_EQ(Rows("SELECT a / 4 FROM M"), (Lines{"0.25", "0.5"}));
    EXPECT_STREQ(ErrorOf([&] { Run("SELECT a / 0 FROM M"); }).what(), "Division by zero");
}

TEST_F(MoneyTest, AnAmountAsTextHasNoGroupingAndNoTrailingZeros)
{
    Add("-1234.5");

    EXPECT_EQ(Rows("SELECT a & ' units', CStr(a) FROM M"), Lines{"-1234.5 units|-1234.5"});
    EXPECT_EQ(Rows("SELECT Abs(a), Round(a), Round(a, 1), CLng(a), CDbl(a) FROM M"),
              Lines{"1234.5|-1234|-1234.5|-1234|-1234.5"});
}

}  // namespace
}  // namespace clb
