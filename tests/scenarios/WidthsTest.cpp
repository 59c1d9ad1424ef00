// The widths of the columns, and the place of the totals line below them.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class WidthsTest : public Scenario {
protected:
    void Resize(int width, int height)
    {
        layout = Do({{"do", "resize"}, {"width", width}, {"height", height}});
        columns = Columns();
    }
    int Of(const char* control, const char* side) const { return layout[control][side]; }
    int Right(const char* control) const { return Of(control, "left") + Of(control, "width"); }
    [[nodiscard]] int Width(int column) const
    {
        return columns[static_cast<std::size_t>(column - 1)]["width"];
    }
    /// Right end of a column of the net worth in the window.
    [[nodiscard]] int RightOf(int column) const
    {
        int right = Of("Grid", "left") + 20;
        for (int shown = 1; shown <= column; ++shown)
            right += Width(shown);
        return right;
    }

    Json layout;
    Json columns;
};

TEST_F(WidthsTest, TheColumnsFillTheGridInTheirFractions)
{
    for (const int width : {1000, 641}) {
        Resize(width, 700);
        const int usable = Of("Grid", "width") - 20 - 16;
        EXPECT_NEAR(Width(1), 0.3 * usable, 1.0) << width;
        EXPECT_EQ(Width(1) + Width(2) + Width(3) + Width(4) + Width(5), usable) << width;
    }
}

TEST_F(WidthsTest, TheAmountsAreUnderTheirColumnsWithTheLabelLeftOfThem)
{
    Resize(1000, 700);

    EXPECT_GE(Of("lblTotal", "left"), Of("Grid", "left"));
    EXPECT_LE(Right("lblTotal"), Of("txtTotal", "left"));
    const int margin = 3;
    EXPECT_NEAR(Right("txtTotal"), RightOf(4), margin);
    EXPECT_NEAR(Of("txtTotal", "width"), Width(4), margin);
    EXPECT_NEAR(Right("txtTotal2"), RightOf(5), margin);
    EXPECT_NEAR(Of("txtTotal2", "width"), Width(5), margin);
}

}  // namespace
}  // namespace clb
