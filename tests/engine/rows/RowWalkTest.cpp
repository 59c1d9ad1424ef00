#include <stdexcept>

#include "engine/rows/RowWalk.h"
#include "engine/storage/Database.h"
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

constexpr int kRows = 600;  // more than are read at a time

class RowWalkTest : public EngineTest {
protected:
    RowWalkTest()
    {
        Recordset rows = Opened("SELECT Sequence, AccountID, Description, Amount FROM Trans");
        for (int i = 0; i < kRows; ++i) {
            rows.AddNew();
            rows.Set(0, i);
            rows.Set(1, std::string(i % 3 == 0 ? "C1" : "C2"));
            if (i != 300)
                rows.Set(2, "row " + std::to_string(i));
            rows.Set(3, Money::FromUnits(i));
            rows.Update();
        }
        connection_.Settle();
    }

    /// The descriptions and amounts that a walk gives.
    std::vector<std::string> Walked(const std::string& sql)
    {
        std::vector<std::string> rows;
        WalkRows(connection_, sql, [&](const WalkedRow& row) {
            rows.push_back(std::string(row.Text(row.FieldIndex("description"))) + "|" +
                           ToMoney(row.Get(row.FieldIndex("AMOUNT"))).ToText());
        });
        return rows;
    }
};

TEST_F(RowWalkTest, EveryRowIsGivenOnceAndInOrder)
{
    for (const std::string end : {"", " WHERE AccountID = 'C1'", " WHERE AccountID = 'none'",
                                  " WHERE Amount > 100 ORDER BY Amount DESC"}) {
        std::vector<std::string> expected;
        Recordset rows = Opened("SELECT * FROM Trans" + end);
        for (; !rows.AtEnd(); rows.MoveNext())
            expected.push_back(ToText(rows.Get("Description")) + "|" +
                               ToMoney(rows.Get("Amount")).ToText());

        EXPECT_EQ(Walked("SELECT * FROM Trans" + end), expected) << end;
    }
}

TEST_F(RowWalkTest, GroupsAreWalkedToo)
{
    EXPECT_EQ(Walked("SELECT AccountID AS Description, SUM( Amount ) AS Amount FROM Trans GROUP BY "
                     "AccountID ORDER BY AccountID"),
              (std::vector<std::string>{"C1|59700", "C2|120000"}));
}

TEST_F(RowWalkTest, OnlyATextIsGivenAsAText)
{
    WalkRows(connection_, "SELECT Amount, Description FROM Trans WHERE Sequence = 300",
             [](const WalkedRow& row) {
                 EXPECT_EQ(row.Text(0), "");
                 EXPECT_EQ(row.Text(1), "");
                 EXPECT_TRUE(IsNull(row.Get(1)));
                 EXPECT_EQ(ErrorOf([&] { return row.FieldIndex("Category"); }).Number(),
                           engine_errors::ItemNotFound);
             });
}

TEST_F(RowWalkTest, ABadCellIsNamed)
{
    Database storage;
    storage.OpenExisting(path_);
    storage.Run("UPDATE Trans SET Amount = '12,50' WHERE Sequence = 2");

    EXPECT_STREQ(ErrorOf([&] { Walked("SELECT * FROM Trans"); }).what(),
                 "Trans.Amount in row 3: The cell holds the text '12,50', which is not an amount.");
}

TEST_F(RowWalkTest, AnExceptionOfTheReceiverEndsTheWalkAndNothingStaysOpen)
{
    int taken = 0;
    EXPECT_THROW(WalkRows(connection_, "SELECT * FROM Trans",
                          [&](const WalkedRow&) {
                              if (++taken == 10)
                                  throw std::runtime_error("enough");
                          }),
                 std::runtime_error);
    EXPECT_EQ(taken, 10);

    Connection other = Another();
    other.Execute("DELETE FROM Trans WHERE Sequence = 1");
    other.Settle();
    EXPECT_EQ(Walked("SELECT * FROM Trans").size(), std::size_t{kRows - 1});
}

TEST_F(RowWalkTest, OnlyASelectIsWalkedAndIsTracedOnce)
{
    std::vector<std::string> traced;
    connection_.Trace([&](std::string_view sql) { traced.emplace_back(sql); });

    EXPECT_THROW(WalkRows(connection_, "DELETE FROM Trans", [](const WalkedRow&) {}), EngineError);
    Walked("SELECT * FROM Trans WHERE Sequence = 5");

    EXPECT_EQ(traced, (std::vector<std::string>{"DELETE FROM Trans",
                                                "SELECT * FROM Trans WHERE Sequence = 5"}));
    EXPECT_EQ(Rows("SELECT COUNT( 1 ) FROM Trans"), std::vector<std::string>{"600"});
}

}  // namespace
}  // namespace clb
