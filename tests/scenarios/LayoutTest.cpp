// The places of the window's controls, and the widths of the columns.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class LayoutTest : public Scenario {
protected:
    Json Resize(int width, int height)
    {
        return Do({{"do", "resize"}, {"width", width}, {"height", height}});
    }
    static int Of(const Json& layout, const char* control, const char* side)
    {
        return layout[control][side].get<int>();
    }
};

TEST_F(LayoutTest, TreeAndGridFillTheRoomBetweenTheBars)
{
    const Json layout = Resize(1000, 700);

    const int treeHeight =
        700 - Of(layout, "StatusBar", "height") - Of(layout, "Toolbar", "height") - 1;
    EXPECT_EQ(Of(layout, "TreeView", "height"), treeHeight);
    EXPECT_EQ(Of(layout, "Grid", "height"), treeHeight - Of(layout, "txtTotal", "height"));
    EXPECT_EQ(Of(layout, "Grid", "width"), 1000 - Of(layout, "TreeView", "width") - 4);
    const int below = Of(layout, "Grid", "top") + Of(layout, "Grid", "height");
    EXPECT_EQ(Of(layout, "lblTotal", "top"), below);
    EXPECT_EQ(Of(layout, "txtTotal", "top"), below);
    EXPECT_EQ(Of(layout, "txtTotal2", "top"), below);
}

TEST_F(LayoutTest, AResizeKeepsTheTreesWidthAndTheGridsLeftEdge)
{
    const Json before = Resize(1000, 700);

    const Json after = Resize(640, 480);

    EXPECT_EQ(after["TreeView"]["width"], before["TreeView"]["width"]);
    EXPECT_EQ(after["Grid"]["left"], before["Grid"]["left"]);
    EXPECT_EQ(after["Grid"]["top"], before["Grid"]["top"]);
}

TEST_F(LayoutTest, NoSizeIsEverNegative)
{
    const Json layout = Resize(3, 3);

    EXPECT_EQ(Of(layout, "TreeView", "height"), 0);
    EXPECT_EQ(Of(layout, "Grid", "height"), 0);
    EXPECT_EQ(Of(layout, "Grid", "width"), 0);
}

TEST_F(LayoutTest, TheColumnsFollowTheWidth)
{
    Resize(1000, 700);
    const Json wide = Grid()["columns"];

    Resize(700, 700);
    const Json narrow = Grid()["columns"];

    const int description = wide[0]["width"].get<int>();
    EXPECT_NEAR(description, 3 * wide[1]["width"].get<int>(), 3);
    EXPECT_NEAR(wide[2]["width"].get<int>(), 2 * wide[1]["width"].get<int>(), 2);
    EXPECT_LT(narrow[0]["width"].get<int>(), description);
}

TEST_F(LayoutTest, AnInvalidSizeIsRefused)
{
    EXPECT_EQ(ErrorOf({{"do", "resize"}, {"width", -1}, {"height", 100}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "resize"}, {"width", 100}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "resize"}, {"width", "100"}, {"height", 100}}), 0);
}

}  // namespace
}  // namespace clb
