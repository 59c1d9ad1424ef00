// Counters that have used up their last number.

#include "engine/storage/Database.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

class CounterTest : public EngineTest {
protected:
    static void ExpectNoNumber(const EngineError& error)
    {
        EXPECT_EQ(error.Number(), engine_errors::Overflow);
        EXPECT_STREQ(error.what(), "No number is left for a new row of the table 'Budget'.");
        EXPECT_EQ(error.Trouble(), FileTrouble::None);
    }
};

/// Symptom: the row got a number that no program could read, and the table became unreadable.
TEST_F(CounterTest, ARowBeyondTheLargestNumberIsRefused)
{
    Run("INSERT INTO Budget (Sequence, Category) VALUES (2147483646, 'a')");
    Run("INSERT INTO Budget (Category) VALUES ('b')");

    ExpectNoNumber(ErrorOf([&] { Run("INSERT INTO Budget (Category) VALUES ('c')"); }));
    for (const char* fields : {"*", "Category"}) {
        Recordset rows = Opened("SELECT " + std::string(fields) + " FROM Budget");
        rows.AddNew();
        rows.Set("Category", std::string("c"));
        ExpectNoNumber(ErrorOf([&] { rows.Update(); }));
    }

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Budget ORDER BY Sequence"),
              (Texts{"2147483646|a", "2147483647|b"}));
}

TEST_F(CounterTest, TheLastNumberStaysUsedUpAfterItsRowIsDeleted)
{
    Run("INSERT INTO Budget (Sequence, Category) VALUES (2147483647, 'a')");
    Run("DELETE FROM Budget");

    ExpectNoNumber(ErrorOf([&] { Run("INSERT INTO Budget (Category) VALUES ('c')"); }));
    Run("INSERT INTO Budget (Sequence, Category) VALUES (7, 'given')");

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Budget"), Texts{"7|given"});
}

TEST_F(CounterTest, ManyRowsAllGetNumbersOrNoneIsAdded)
{
    Run("INSERT INTO Budget (Sequence, Category) VALUES (2147483643, 'a')");
    Run("INSERT INTO Budget (Sequence, Category) VALUES (2147483644, 'b')");
    Run("INSERT INTO Budget (Category) SELECT Category FROM Budget");

    ExpectNoNumber(
        ErrorOf([&] { Run("INSERT INTO Budget (Category) SELECT Category FROM Budget"); }));

    EXPECT_EQ(Rows("SELECT Sequence, Category FROM Budget ORDER BY Sequence"),
              (Texts{"2147483643|a", "2147483644|b", "2147483645|a", "2147483646|b"}));
}

/// The storage reports its own last number as a full disk.
TEST_F(CounterTest, TheStoragesLastNumberIsNotAFullDisk)
{
    Run("INSERT INTO Budget (Category) VALUES ('a')");
    connection_.Settle();
    {
        Database other;
        other.OpenExisting(path_);
        other.Run("UPDATE sqlite_sequence SET seq = 9223372036854775807 WHERE name = 'Budget'");
    }

    ExpectNoNumber(ErrorOf([&] { Run("INSERT INTO Budget (Category) VALUES ('c')"); }));
    Run("UPDATE Budget SET Category = 'still written'");
    connection_.Settle();

    EXPECT_EQ(Rows("SELECT Category FROM Budget"), Texts{"still written"});
}

}  // namespace
}  // namespace clb
