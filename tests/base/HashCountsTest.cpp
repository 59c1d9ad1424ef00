#include <gtest/gtest.h>

#include "base/HashCounts.h"

namespace clb {
namespace {

TEST(HashCountsTest, CountsEachHashForItself)
{
    HashCounts counts;
    EXPECT_EQ(counts.Count(7), 0U);
    EXPECT_EQ(counts.Add(7), 1U);
    EXPECT_EQ(counts.Add(8), 1U);
    EXPECT_EQ(counts.Add(7), 2U);
    EXPECT_EQ(counts.Add(7), 3U);
    EXPECT_EQ(counts.Count(7), 3U);
    EXPECT_EQ(counts.Count(8), 1U);
    EXPECT_EQ(counts.Count(9), 0U);
}

TEST(HashCountsTest, KeepsCountsWhileItGrows)
{
    constexpr std::uint64_t kMany = 100'000;
    HashCounts counts;
    for (std::uint64_t hash = 2; hash < kMany; ++hash)
        ASSERT_EQ(counts.Add(hash << 40U), 1U);
    for (std::uint64_t hash = 2; hash < kMany; hash += 3)
        ASSERT_EQ(counts.Add(hash << 40U), 2U);
    for (std::uint64_t hash = 2; hash < kMany; ++hash)
        ASSERT_EQ(counts.Count(hash << 40U), hash % 3 == 2 ? 2U : 1U);
    EXPECT_EQ(counts.Count(kMany << 40U), 0U);
}

TEST(HashCountsTest, TakesZeroAsAHash)
{
    HashCounts counts;
    EXPECT_EQ(counts.Add(0), 1U);
    EXPECT_EQ(counts.Add(0), 2U);
    EXPECT_EQ(counts.Count(0), 2U);
}

}  // namespace
}  // namespace clb
