// The widths of the columns, and the place of the totals line below them.

#include <cmath>
#include <map>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

struct ViewWidths {
    const char* node;
    std::map<int, double> fractions;  ///< by column
    int rest;                         ///< column that takes what remains; 0: none
    int firstTotal = 0;               ///< column above the first amount; 0: not fixed
    int secondTotal = 0;
};

std::ostream& operator<<(std::ostream& out, const ViewWidths& view)
{
    return out << view.node;
}

const ViewWidths kViews[] = {
    {"Net Worth", {{1, 0.3}, {2, 0.1}, {3, 0.2}, {4, 0.2}}, 5, 4, 5},
    {"Budget", {{1, 0.25}, {2, 0.2}, {7, 0.2}, {8, 0.2}}, 0, 2, 7},
    {"Bank", {{1, 0.4}, {2, 0.2}, {3, 0.2}}, 4, 3, 4},
    {"Checking", {{1, 0.12}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}}, 6},
    {"Broker", {{1, 0.1}, {2, 0.3}, {3, 0.1}, {4, 0.1}, {5, 0.1}, {6, 0.1}}, 7},
    {"House", {{1, 0.4}, {2, 0.16}, {3, 0.16}, {4, 0.1}}, 7},
};

class WidthsTest : public Scenario, public testing::WithParamInterface<ViewWidths> {
protected:
    WidthsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
        Click(GetParam().node);
    }

    void Resize(int width, int height)
    {
        layout = Do({{"do", "resize"}, {"width", width}, {"height", height}});
        columns = Columns();
    }
    [[nodiscard]] int Usable() const { return Of("Grid", "width") - 20 - 16; }
    int Of(const char* control, const char* side) const { return layout[control][side]; }
    int Right(const char* control) const { return Of(control, "left") + Of(control, "width"); }
    [[nodiscard]] int Width(int column) const
    {
        return columns[static_cast<std::size_t>(column - 1)]["width"];
    }
    /// Right end of a column in the window.
    [[nodiscard]] int RightOf(int column) const
    {
        const int position = columns[static_cast<std::size_t>(column - 1)]["position"];
        int right = Of("Grid", "left") + 20;
        for (const Json& other : columns)
            if (other["hidden"] == false && other["position"] <= position)
                right += other["width"].get<int>();
        return right;
    }

    Json layout;
    Json columns;
};

TEST_P(WidthsTest, ColumnsAreFractionsOfTheUsableWidth)
{
    for (const int width : {1000, 640, 1773}) {
        Resize(width, 700);
        for (const auto& [column, fraction] : GetParam().fractions)
            EXPECT_NEAR(Width(column), fraction * Usable(), 1.0) << column << " of " << width;
    }
}

TEST_P(WidthsTest, TheLastColumnGetsTheRemainingWidth)
{
    const int rest = GetParam().rest;
    if (rest == 0)
        return;
    for (const int width : {1000, 641, 1773}) {
        Resize(width, 700);
        int sum = Width(rest);
        for (const auto& [column, fraction] : GetParam().fractions)
            sum += Width(column);
        EXPECT_EQ(sum, Usable()) << width;
    }
}

TEST_P(WidthsTest, AWindowTooSmallForAnyColumnHasNoNegativeWidth)
{
    Resize(1, 1);

    for (const Json& column : columns)
        EXPECT_GE(column["width"].get<int>(), 0) << ToLine(column);
    EXPECT_GE(Of("lblTotal", "width"), 0);
    EXPECT_GE(Of("txtTotal", "width"), 0);
    EXPECT_GE(Of("txtTotal2", "width"), 0);
}

TEST_P(WidthsTest, TheAmountsAreUnderTheirColumnsWithTheLabelLeftOfThem)
{
    Resize(1000, 700);

    const int grid = Of("Grid", "left");
    EXPECT_GE(Of("lblTotal", "left"), grid);
    EXPECT_LE(Right("lblTotal"), Of("txtTotal", "left"));
    EXPECT_GT(Of("txtTotal", "width"), 0);
    EXPECT_LE(Right("txtTotal"), Right("Grid"));
    if (GetParam().firstTotal == 0)
        return;
    const int margin = 3;
    EXPECT_NEAR(Right("txtTotal"), RightOf(GetParam().firstTotal), margin);
    EXPECT_NEAR(Of("txtTotal", "width"), Width(GetParam().firstTotal), margin);
    EXPECT_NEAR(Right("txtTotal2"), RightOf(GetParam().secondTotal), margin);
    EXPECT_NEAR(Of("txtTotal2", "width"), Width(GetParam().secondTotal), margin);
}

INSTANTIATE_TEST_SUITE_P(EveryView, WidthsTest, testing::ValuesIn(kViews),
                         [](const testing::TestParamInfo<ViewWidths>& tested) {
                             return "View" + std::to_string(tested.index);
                         });

class WidthsOfNoViewTest : public Scenario {};

TEST_F(WidthsOfNoViewTest, AnyOtherViewKeepsTheWidths)
{
    const Json before = Columns();
    SetView("HoldRefresh", true);
    SetView("View", 0);

    Do({{"do", "resize"}, {"width", 1500}, {"height", 700}});

    EXPECT_EQ(ToLine(Columns()), ToLine(before));
}

}  // namespace
}  // namespace clb
