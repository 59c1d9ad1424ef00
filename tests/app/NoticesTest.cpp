#include <gtest/gtest.h>

#include "app/Notices.h"

namespace clb {
namespace {

TEST(NoticesTest, OneOfEachKindStaysAtItsPlaceUntilItIsEmpty)
{
    Notices notices;
    int changes = 0;
    notices.Changed().connect([&] { ++changes; });

    notices.Set("backup", "No backup.");
    notices.Set("balance", "A balance is wrong.");
    notices.Set("backup", "Still no backup.");
    notices.Set("backup", "Still no backup.");
    notices.Set("other", "");
    EXPECT_EQ(notices.Text(), "Still no backup.\nA balance is wrong.");
    EXPECT_EQ(changes, 3);

    notices.Set("backup", "");
    notices.Set("balance", "");
    EXPECT_EQ(notices.Text(), "");
    EXPECT_EQ(changes, 5);
}

}  // namespace
}  // namespace clb
