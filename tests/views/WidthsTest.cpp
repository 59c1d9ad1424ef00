// The widths of the columns, and the place of the totals line below them.

#include <map>

#include "tests/views/ShownView.h"

namespace clb {
namespace {

struct ViewWidths {
    std::int32_t view;
    std::map<std::int32_t, double> fractions;  ///< by column
    std::int32_t rest;                         ///< column that takes what remains; 0: none
    std::int32_t firstTotal = 0;               ///< column above the first amount; 0: not fixed
    std::int32_t secondTotal = 0;
};

const ViewWidths kViews[] = {
    {vwNetWorth, {{1, 0.3}, {2, 0.1}, {3, 0.2}, {4, 0.2}}, 5, 4, 5},
    {vwBudget, {{1, 0.25}, {2, 0.2}, {7, 0.2}, {8, 0.2}}, 0, 2, 7},
    {vwAccountType, {{1, 0.4}, {2, 0.2}, {3, 0.2}}, 4, 3, 4},
    {vwAccount, {{1, 0.12}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}}, 6},
    {vwInvestment, {{1, 0.1}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}, {6, 0.1}}, 7},
    {vwLoan, {{1, 0.4}, {2, 0.16}, {3, 0.16}, {4, 0.1}}, 7},
};

class WidthsTest : public ShownView, public testing::WithParamInterface<ViewWidths> {
protected:
    WidthsTest() { Show(GetParam().view); }

    std::int32_t Usable()
    {
        return Grid().Width() - grid_metrics::kSelector - grid_metrics::kScrollBar;
    }
    std::int32_t Width(std::int32_t column) { return Columns().Item(column).width; }
    static std::int32_t Right(const Control& control)
    {
        return control.Place().left + control.Place().width;
    }
    /// Right end of a column in the window.
    std::int32_t RightOf(std::int32_t column)
    {
        return Grid().Left() + grid_metrics::kSelector + Columns().Left(column) + Width(column);
    }
};

TEST_P(WidthsTest, ColumnsAreFractionsOfTheUsableWidth)
{
    for (const std::int32_t width : {1000, 640, 1773}) {
        books_.window.Resize(width, 700);
        for (const auto& [column, fraction] : GetParam().fractions)
            EXPECT_NEAR(Width(column), fraction * Usable(), 1.0) << column << " of " << width;
    }
}

TEST_P(WidthsTest, TheLastColumnGetsTheRemainingWidth)
{
    if (GetParam().rest == 0)
        return;
    for (const std::int32_t width : {1000, 641, 1773}) {
        books_.window.Resize(width, 700);
        std::int32_t sum = Width(GetParam().rest);
        for (const auto& [column, fraction] : GetParam().fractions)
            sum += Width(column);
        EXPECT_EQ(sum, Usable()) << width;
    }
}

TEST_P(WidthsTest, AWindowTooSmallForAnyColumnHasNoNegativeWidth)
{
    books_.window.Resize(1, 1);

    for (std::int32_t column = 1; column <= Columns().Count(); ++column)
        EXPECT_GE(Width(column), 0) << column;
    EXPECT_GE(books_.window.lblTotal.Place().width, 0);
    EXPECT_GE(books_.window.txtTotal.Place().width, 0);
    EXPECT_GE(books_.window.txtTotal2.Place().width, 0);
}

TEST_P(WidthsTest, TheAmountsAreUnderTheirColumnsWithTheLabelLeftOfThem)
{
    books_.window.Resize(1000, 700);

    const Control& label = books_.window.lblTotal;
    const Control& first = books_.window.txtTotal;
    const Control& second = books_.window.txtTotal2;
    EXPECT_GE(label.Place().left, Grid().Left());
    EXPECT_LE(Right(label), first.Place().left);
    EXPECT_GT(first.Place().width, 0);
    EXPECT_LE(Right(first), Right(Grid()));
    if (GetParam().firstTotal == 0)
        return;
    const int margin = 3;
    EXPECT_NEAR(Right(first), RightOf(GetParam().firstTotal), margin);
    EXPECT_NEAR(first.Place().width, Width(GetParam().firstTotal), margin);
    EXPECT_NEAR(Right(second), RightOf(GetParam().secondTotal), margin);
    EXPECT_NEAR(second.Place().width, Width(GetParam().secondTotal), margin);
}

INSTANTIATE_TEST_SUITE_P(EveryView, WidthsTest, testing::ValuesIn(kViews),
                         [](const testing::TestParamInfo<ViewWidths>& tested) {
                             return "View" + std::to_string(tested.param.view);
                         });

class WidthsOfNoViewTest : public ShownView {};

TEST_F(WidthsOfNoViewTest, AnyOtherViewKeepsTheWidths)
{
    const std::int32_t before = Columns().Item(1).width;
    books_.window.View().HoldRefresh(true);
    books_.window.View().View(0);

    books_.window.Resize(1500, 700);

    EXPECT_EQ(Columns().Item(1).width, before);
}

}  // namespace
}  // namespace clb
