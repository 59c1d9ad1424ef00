// The numbering of rows and the index of values, without a database.
#include <gtest/gtest.h>

#include "engine/rows/FindIndex.h"
#include "engine/rows/LiveRows.h"

namespace clb {
namespace {

TEST(LiveRowsTest, NumbersCountOnlyTheRowsThatAreLeft)
{
    LiveRows rows;
    for (int i = 0; i < 100; ++i)
        rows.Append();
    for (std::size_t slot = 0; slot < 100; slot += 3)
        rows.Remove(slot);
    rows.Remove(3);
    rows.Append();

    EXPECT_EQ(rows.Slots(), 101U);
    EXPECT_EQ(rows.Count(), 67U);
    std::size_t number = 0;
    for (std::size_t slot = 0; slot < rows.Slots(); ++slot) {
        EXPECT_EQ(rows.NumberOf(slot), number);
        if (!rows.IsLive(slot))
            continue;
        EXPECT_EQ(rows.SlotOf(number), slot);
        ++number;
    }
    EXPECT_EQ(number, 67U);
    EXPECT_EQ(rows.NextLive(0), 1U);
    EXPECT_EQ(rows.NextLive(99), 100U);
    EXPECT_EQ(rows.SlotOf(67), 101U);
}

TEST(LiveRowsTest, RowsAddedAfterRemovalsCountAsWell)
{
    LiveRows rows;
    rows.Append();
    rows.Remove(0);
    for (int i = 0; i < 40; ++i)
        rows.Append();

    EXPECT_EQ(rows.Count(), 40U);
    for (std::size_t number = 0; number < 40; ++number)
        EXPECT_EQ(rows.SlotOf(number), number + 1);
    rows.Clear();
    EXPECT_EQ(rows.Slots(), 0U);
}

TEST(FindIndexTest, TheFirstAcceptedSlotFromAPlaceOnIsFound)
{
    FindIndex index;
    const auto all = [](std::size_t) { return true; };
    EXPECT_EQ(index.Find(7, 0, all), FindIndex::kNotFound);
    for (const std::size_t slot : {5U, 1U, 9U})
        index.Add(7, slot);
    index.Add(8, 3);

    EXPECT_EQ(index.Find(7, 0, all), 1U);
    EXPECT_EQ(index.Find(7, 2, all), 5U);
    EXPECT_EQ(index.Find(7, 10, all), FindIndex::kNotFound);
    EXPECT_EQ(index.Find(8, 4, all), FindIndex::kNotFound);
    EXPECT_EQ(index.Find(7, 0, [](std::size_t slot) { return slot > 5; }), 9U);
    index.Remove(7, 1);
    index.Remove(8, 3);
    EXPECT_EQ(index.Find(7, 0, all), 5U);
    EXPECT_EQ(index.Find(8, 0, all), FindIndex::kNotFound);
    index.Add(8, 4);
    EXPECT_EQ(index.Find(8, 0, all), 4U);
}

TEST(FindIndexTest, ManyHashesAreKeptApart)
{
    FindIndex index;
    for (std::size_t i = 0; i < 10000; ++i)
        index.Add(HashOf(Value(static_cast<std::int32_t>(i))), i);

    for (std::size_t i = 0; i < 10000; ++i)
        EXPECT_EQ(index.Find(HashOf(Value(static_cast<std::int32_t>(i))), 0,
                             [](std::size_t) { return true; }),
                  i);
}

TEST(FindIndexTest, EqualValuesHaveEqualHashes)
{
    EXPECT_EQ(HashOf(Value(0.0)), HashOf(Value(-0.0)));
    EXPECT_EQ(HashOf(Value(std::string("a"))), HashOf(Value(std::string("a"))));
    EXPECT_NE(HashOf(Value(std::string("a"))), HashOf(Value(std::string("b"))));
    EXPECT_NE(HashOf(Value(true)), HashOf(Value(false)));
}

}  // namespace
}  // namespace clb
