// The totals line is below the columns that it sums.

#include <gtest/gtest.h>

#include "data/ViewColumns.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

std::int32_t Right(const Control& control)
{
    return control.Place().left + control.Place().width;
}

/// Right edge of a column in the window.
std::int32_t RightOf(frmController& window, std::int32_t column)
{
    return window.Grid.Left() + grid_metrics::kSelector + window.Grid.Columns().Left(column) +
           window.Grid.Columns().Item(column).width;
}

TEST(TotalsPlaceTest, BothAmountsEndBelowTheirColumns)
{
    Books books;
    books.window.Resize(1000, 600);

    EXPECT_EQ(Right(books.window.txtTotal), RightOf(books.window, NetWorth::OpeningBalance) - 3);
    EXPECT_EQ(Right(books.window.txtTotal2), RightOf(books.window, NetWorth::TotalBalance) - 3);
    EXPECT_EQ(books.window.txtTotal2.Place().left - Right(books.window.txtTotal), 3);
}

TEST(TotalsPlaceTest, ALoneAmountHasRoomBelowANarrowColumn)
{
    Books books;
    books.AddAccount("10", "Bank", "Checking");
    books.window.View().AccountID("10");
    books.window.View().View(vwAccount);
    books.window.Resize(700, 500);

    EXPECT_GE(books.window.txtTotal.Place().width, 120);
    EXPECT_EQ(Right(books.window.txtTotal), RightOf(books.window, Register::Amount) - 3);
    EXPECT_EQ(books.window.txtTotal2.Place().width, 0);
    EXPECT_LE(Right(books.window.lblTotal), books.window.txtTotal.Place().left);
}

TEST(TotalsPlaceTest, WidthsFromAnEarlierStartAreLimited)
{
    Books books;

    books.window.View().WidthsByHand(
        {{vwNetWorth, {{NetWorth::Description, 2000000000}, {NetWorth::Type, -7}}}});

    EXPECT_EQ(books.window.Grid.Columns().Item(NetWorth::Description).width, 4000);
    EXPECT_EQ(books.window.Grid.Columns().Item(NetWorth::Type).width, GridComponent::kLeastWidth);
}

TEST(TotalsPlaceTest, TheColumnsFollowTheGridsWidthInTheirFractions)
{
    Books books;
    books.window.Resize(1040, 600);
    GridColumns& columns = books.window.Grid.Columns();

    const std::int32_t usable =
        books.window.Grid.Width() - grid_metrics::kSelector - grid_metrics::kScrollBar;
    EXPECT_EQ(usable, 800);
    EXPECT_EQ(columns.Item(NetWorth::Description).width, 240);
    EXPECT_EQ(columns.Item(NetWorth::Type).width, 80);
    EXPECT_EQ(columns.Item(NetWorth::AccountID).width, 160);
    EXPECT_EQ(columns.Item(NetWorth::OpeningBalance).width, 160);
    EXPECT_EQ(columns.Item(NetWorth::TotalBalance).width, 160);
}

}  // namespace
}  // namespace clb
