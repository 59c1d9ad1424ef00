// Result sets with more rows than are kept in memory.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

constexpr int kRows = 20000;

class LargeSetTest : public EngineTest {
protected:
    LargeSetTest()
    {
        Recordset rows = Opened("SELECT Sequence, Description, Amount FROM Trans");
        for (int i = 0; i < kRows; ++i) {
            rows.AddNew();
            rows.Set(0, i);
            rows.Set(1, "row " + std::to_string(i));
            rows.Set(2, Money::FromUnits(i % 100));
            rows.Update();
        }
    }
};

TEST_F(LargeSetTest, AWalkGivesEveryRowOnce)
{
    Recordset rows = Opened("SELECT Description, Sequence FROM Trans ORDER BY Sequence DESC");
    ASSERT_EQ(rows.RecordCount(), kRows);

    int expected = kRows;
    for (; !rows.AtEnd(); rows.MoveNext()) {
        --expected;
        ASSERT_EQ(rows.Get(1), Value(std::int32_t{expected}));
        ASSERT_EQ(rows.Get(0), Value("row " + std::to_string(expected)));
    }
    EXPECT_EQ(expected, 0);
}

TEST_F(LargeSetTest, AWalkOverMostRowsSkipsTheOthers)
{
    for (const char* fields : {"Sequence", "Sequence + 0 AS n, Description & '!' AS d"}) {
        const std::string sql = std::string("SELECT ") + fields + " FROM Trans WHERE Amount < 75";
        Recordset rows = Opened(sql);
        ASSERT_EQ(rows.RecordCount(), kRows / 4 * 3);

        for (int expected = 0; expected < kRows; ++expected) {
            if (expected % 100 >= 75)
                continue;
            ASSERT_EQ(rows.Get(0), Value(std::int32_t{expected})) << sql;
            rows.MoveNext();
        }
        EXPECT_TRUE(rows.AtEnd());
    }
}

TEST_F(LargeSetTest, RowsAreReachedByNumberInAnyOrder)
{
    const Recordset rows = Opened("SELECT Sequence FROM Trans");

    for (int i = 0, row = 0; i < 2000; ++i, row = (row + 7919) % kRows)
        ASSERT_EQ(rows.At(static_cast<std::size_t>(row), 0), Value(std::int32_t{row}));
}

TEST_F(LargeSetTest, ChangesFarFromTheStartAreSavedFoundAndDeleted)
{
    Recordset rows = Opened("SELECT Sequence, Description FROM Trans");

    rows.Find("Description = 'row 19500'");
    ASSERT_EQ(rows.Get(0), Value(std::int32_t{19500}));
    rows.Set("Description", std::string("changed"));
    rows.MoveFirst();
    rows.Find("Description = 'changed'");
    EXPECT_EQ(rows.Get(0), Value(std::int32_t{19500}));
    rows.Delete();
    rows.MoveFirst();
    rows.Find("Description = 'changed'");

    EXPECT_TRUE(rows.AtEnd());
    EXPECT_EQ(rows.At(19500, 0), Value(std::int32_t{19501}));
    EXPECT_EQ(Single("SELECT COUNT(*) FROM Trans"), Value(std::int32_t{kRows - 1}));
}

TEST_F(LargeSetTest, ARowAddedAfterASearchIsFound)
{
    Recordset rows = Opened("SELECT Sequence, Description FROM Trans");
    rows.Find("Description = 'row 19500'");

    rows.AddNew();
    rows.Set("Sequence", std::int32_t{kRows});
    rows.Set("Description", std::string("added"));
    rows.Update();
    rows.MoveFirst();
    for (int i = 0; i < kRows / 2; ++i, rows.MoveNext())  // far enough for the row to leave memory
        static_cast<void>(rows.Get(0));

    rows.MoveFirst();
    rows.Find("Description = 'added'");
    EXPECT_EQ(rows.Get(0), Value(std::int32_t{kRows}));
}

TEST_F(LargeSetTest, AChangedRowIsFoundByItsNewValueAfterALongWalk)
{
    Recordset rows = Opened("SELECT Sequence, Description FROM Trans");

    rows.Find("Description = 'row 100'");
    rows.Set("Description", std::string("changed"));
    rows.Update();
    for (rows.MoveFirst(); !rows.AtEnd(); rows.MoveNext())
        static_cast<void>(rows.Get(0));

    rows.MoveFirst();
    rows.Find("Description = 'row 100'");
    EXPECT_TRUE(rows.AtEnd());
    rows.MoveFirst();
    rows.Find("Description = 'changed'");
    EXPECT_EQ(rows.Get(0), Value(std::int32_t{100}));
}

TEST_F(LargeSetTest, ASetThatIsReadAgainMayBeSmaller)
{
    Recordset rows = Opened("SELECT Sequence FROM Trans");
    for (; !rows.AtEnd(); rows.MoveNext())
        static_cast<void>(rows.Get(0));
    Run("DELETE FROM Trans WHERE Sequence >= 10000");

    rows.Requery();

    std::int32_t expected = 0;
    for (; !rows.AtEnd(); rows.MoveNext())
        ASSERT_EQ(rows.Get(0), Value(expected++));
    EXPECT_EQ(expected, 10000);
}

TEST_F(LargeSetTest, EveryOtherRowCanBeDeleted)
{
    Recordset rows = Opened("SELECT Sequence FROM Trans");

    while (!rows.AtEnd()) {
        rows.Delete();
        rows.MoveNext();
        rows.MoveNext();
    }

    EXPECT_EQ(rows.RecordCount(), kRows / 2);
    EXPECT_EQ(rows.At(5000, 0), Value(std::int32_t{10001}));
    EXPECT_EQ(Single("SELECT SUM(Sequence) FROM Trans"), Value(std::int32_t{100000000}));
}

TEST_F(LargeSetTest, ARowThatVanishedIsAnErrorWhenItIsRead)
{
    Recordset rows = Opened("SELECT Sequence, Description FROM Trans");
    Run("DELETE FROM Trans WHERE Sequence = 15000");

    EXPECT_EQ(ErrorOf([&] { return rows.At(15000, 0); }).Number(), engine_errors::RowVanished);
    rows.Find("Description = 'row 15000'");
    EXPECT_TRUE(rows.AtEnd());
}

TEST_F(LargeSetTest, AJoinOfManyRowsIsKeptInMemory)
{
    Run("INSERT INTO Account (AccountID) VALUES ('1')");
    Recordset rows = Opened("SELECT Trans.Sequence FROM Trans, Account");
    Run("DELETE FROM Trans");

    ASSERT_EQ(rows.RecordCount(), kRows);
    EXPECT_EQ(rows.At(kRows - 1, 0), Value(std::int32_t{kRows - 1}));
}

}  // namespace
}  // namespace clb
