// Queries that are built by concatenation share their plan, but nothing else.
#include "engine/sql/Lexer.h"
#include "engine/sql/PlanCache.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class CacheTest : public EngineTest {
protected:
    static bool SameShape(std::string_view a, std::string_view b)
    {
        return ShapeOf(Lex(a)) == ShapeOf(Lex(b));
    }
};

TEST_F(CacheTest, QueriesThatDifferInLiteralsOfOneKindHaveOneShape)
{
    EXPECT_TRUE(SameShape("SELECT a FROM t WHERE b = 'x' AND c = 1",
                          "SELECT a  FROM t WHERE b = 'it''s' AND c = 222"));
    EXPECT_TRUE(SameShape("WHERE a = 1.25", "WHERE a = 99999999999"));
    EXPECT_TRUE(SameShape("WHERE a = #2006-01-01#", "WHERE a = #1/2/2006#"));
    EXPECT_FALSE(SameShape("WHERE a = 1", "WHERE a = '1'"));
    EXPECT_FALSE(SameShape("WHERE a = 1", "WHERE a = -1"));
    EXPECT_FALSE(SameShape("WHERE a = 1", "WHERE a = 1.5"));
    EXPECT_FALSE(SameShape("WHERE a = 1.5", "WHERE a = 1.00001"));
    EXPECT_FALSE(SameShape("WHERE a = 1", "WHERE b = 1"));
    EXPECT_FALSE(SameShape("SELECT TOP 1 a", "SELECT TOP 2 a"));
    EXPECT_FALSE(SameShape("ORDER BY 1", "ORDER BY 2"));
    EXPECT_FALSE(SameShape("[a b]", "[a] b"));
}

TEST(PlanCacheTest, TheLeastRecentlyUsedPlanIsRemovedFirst)
{
    PlanCache cache;
    for (int i = 0; i < 256; ++i)
        cache.AddText(std::to_string(i), {});
    EXPECT_NE(cache.FindText("0"), nullptr);

    cache.AddText("256", {});

    EXPECT_EQ(cache.FindText("1"), nullptr);
    for (const char* kept : {"0", "2", "255", "256"})
        EXPECT_NE(cache.FindText(kept), nullptr) << kept;
    cache.Clear();
    EXPECT_EQ(cache.FindText("0"), nullptr);
}

TEST_F(CacheTest, EveryQueryHasItsOwnValues)
{
    for (int i = 0; i < 1000; ++i)
        Run("INSERT INTO Trans (Sequence, Description, Amount) VALUES (" + std::to_string(i) +
            ", 'row ''" + std::to_string(i) + "', " + std::to_string(i) + ".25)");

    for (const int i : {0, 1, 500, 999, 0, 1}) {
        const std::string number = std::to_string(i);
        const std::string amount = number + ".25";
        EXPECT_EQ(Rows("SELECT Description, Amount FROM Trans WHERE Sequence = " + number),
                  Lines{std::string("row '").append(number).append("|").append(amount)});
        EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Amount = " + amount), Lines{number});
    }
}

TEST_F(CacheTest, LiteralsOfAnotherKindAreCheckedAgain)
{
    Run("INSERT INTO Trans (Sequence, Amount) VALUES (1, 1.5)");

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Amount = 1.5"), Lines{"1"});
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Amount = 1.50001"), Lines{});
    EXPECT_EQ(ErrorOf([&] { Run("SELECT Sequence FROM Trans WHERE Amount = '1.5'"); }).Number(),
              engine_errors::TypeMismatch);
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans WHERE Amount = 1"), Lines{});
}

TEST_F(CacheTest, TheSameTextRunsAgainOverChangedRows)
{
    const std::string sql = "SELECT MAX( Sequence ) AS NextSequence FROM Trans";
    EXPECT_EQ(Rows(sql), Lines{"-"});
    Run("INSERT INTO Trans (Sequence) VALUES (7)");
    EXPECT_EQ(Rows(sql), Lines{"7"});
    Run("INSERT INTO Trans (Sequence) VALUES (7)");
    Run("INSERT INTO Trans (Sequence) VALUES (9)");
    EXPECT_EQ(Rows(sql), Lines{"9"});
}

TEST_F(CacheTest, AChangedSchemaMakesNewPlans)
{
    Run("INSERT INTO Loan (Description, InterestRate) VALUES ('Car', 5.5)");
    const std::string sql = "SELECT * FROM Loan WHERE InterestRate = 5.5";
    const std::string before = FieldsOf(sql);

    Run("ALTER TABLE Loan ALTER COLUMN InterestRate MONEY");

    EXPECT_NE(FieldsOf(sql), before);
    EXPECT_EQ(Rows("SELECT InterestRate FROM Loan WHERE InterestRate = 5.5"), Lines{"5.5"});
    Run("DROP TABLE Loan");
    EXPECT_EQ(ErrorOf([&] { Run(sql); }).Number(), engine_errors::NoSuchTable);
}

TEST_F(CacheTest, ManyDifferentQueriesDoNotHarmEachOther)
{
    Run("INSERT INTO Trans (Sequence, Year) VALUES (1, 2006)");

    for (int i = 1; i < 600; ++i) {
        const std::string alias = "A" + std::to_string(i);
        ASSERT_EQ(FieldsOf("SELECT Year AS " + alias + " FROM Trans"), alias + ":long");
    }
    EXPECT_EQ(FieldsOf("SELECT Year AS A1 FROM Trans"), "A1:long");
}

TEST_F(CacheTest, TwoSetsOfOneShapeAreIndependent)
{
    RunAll({"INSERT INTO Budget (Year, Category) VALUES (1, 'a')",
            "INSERT INTO Budget (Year, Category) VALUES (2, 'b')"});
    Recordset one = Opened("SELECT Category, Category & '1' AS X FROM Budget WHERE Year = 1");
    Recordset two = Opened("SELECT Category, Category & '2' AS X FROM Budget WHERE Year = 2");

    one.Set("Category", std::string("c"));
    two.Set("Category", std::string("d"));
    one.Update();
    two.Update();

    EXPECT_EQ(one.Get("X"), Value(std::string("c1")));
    EXPECT_EQ(two.Get("X"), Value(std::string("d2")));
    one.Requery();
    EXPECT_EQ(one.Get("X"), Value(std::string("c1")));
}

}  // namespace
}  // namespace clb
