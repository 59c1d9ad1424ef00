#include <QPixmap>

#include "desktop/grid/CellTip.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class GridViewTest : public WindowTest {
protected:
    GridViewTest() { ClickNode("Checking"); }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        Key(GridWidget(window_), key, held);
    }
    std::pair<std::size_t, std::int32_t> Current() { return {Grid().Row(), Grid().Col()}; }
    using Cell = std::pair<std::size_t, std::int32_t>;
};

TEST_F(GridViewTest, AClickMakesTheCellCurrentAndGivesTheGridTheFocus)
{
    ClickCell(3, 2);

    EXPECT_EQ(Current(), Cell(3, 2));
    EXPECT_EQ(Model().window.Focus(), &Grid());
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(GridViewTest, AClickOutsideTheRowsOnlySetsTheFocus)
{
    const QRect last = GridWidget(window_).Layout().CellRect(5, 1);
    ClickAt(*GridWidget(window_).viewport(), last.translated(0, 3 * last.height()));

    EXPECT_EQ(Current(), Cell(1, 1));
    EXPECT_EQ(Model().window.Focus(), &Grid());
}

TEST_F(GridViewTest, AClickOnTheSelectorMakesTheRowCurrentInItsColumn)
{
    ClickCell(1, 3);

    ClickAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().SelectorRect(4));

    EXPECT_EQ(Current(), Cell(4, 3));
}

TEST_F(GridViewTest, TheArrowsMoveTheCurrentCellAndStopAtTheEdges)
{
    ClickCell(1, 1);

    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), Cell(2, 2));

    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    EXPECT_EQ(Current(), Cell(1, 1));
}

TEST_F(GridViewTest, HomeAndEndGoAlongTheRowAndWithControlToTheCorners)
{
    ClickCell(2, 3);

    Press(Qt::Key_End);
    EXPECT_EQ(Current(), Cell(2, 6));
    Press(Qt::Key_Home);
    EXPECT_EQ(Current(), Cell(2, 1));
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Current(), Cell(5, 6));
    Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(Current(), Cell(1, 1));
}

TEST_F(GridViewTest, TabGoesThroughTheShownCellsRowByRow)
{
    ClickCell(1, 5);

    Press(Qt::Key_Tab);
    EXPECT_EQ(Current(), Cell(1, 6));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Current(), Cell(2, 1));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Current(), Cell(1, 6));
}

TEST_F(GridViewTest, TabOnTheLastCellLeavesTheGrid)
{
    ClickCell(5, 6);

    Press(Qt::Key_Tab);

    EXPECT_NE(Model().window.Focus(), &Grid());
    EXPECT_FALSE(GridWidget(window_).hasFocus());
}

TEST_F(GridViewTest, TheGridScrollsSoThatTheCurrentCellIsVisible)
{
    for (int row = 0; row < 200; ++row)
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, PayeeName, Amount, [Year], Period, "
            "[Sequence]) VALUES ('C1', #2006-03-05#, 'Grocer', -1, 2006, 3, " +
            std::to_string(100 + row) + ")");
    ClickNode("Checking");
    ClickCell(1, 1);

    Press(Qt::Key_End, Qt::ControlModifier);

    EXPECT_EQ(Grid().Row(), 205U);
    const GridLayout& layout = GridWidget(window_).Layout();
    EXPECT_TRUE(GridWidget(window_).viewport()->rect().contains(layout.CellRect(205, 6)));
    EXPECT_LT(layout.RowTop(1), 0);
}

TEST_F(GridViewTest, DrawingReadsOnlyTheVisibleRows)
{
    for (int row = 0; row < 3000; ++row)
        books_.Execute(
            "INSERT INTO Loan (AccountID, Description, OriginalAmount, PaidAmount) "
            "VALUES ('L1', 'Car', 100, " +
            std::to_string(row) + ")");
    ClickNode("Car");
    int reads = 0;
    Grid().FetchColumnData().connect(
        [&reads](std::int32_t, std::int32_t, const Value&, Value&) { ++reads; });

    GridWidget(window_).grab();

    const GridView& view = GridWidget(window_);
    EXPECT_GT(reads, 5);
    EXPECT_LE(reads, view.viewport()->height() / view.Layout().RowHeight() + 2);
}

TEST_F(GridViewTest, NothingIsDrawnWhilePaintingIsSwitchedOff)
{
    ClickNode("Car");
    books_.Execute(
        "INSERT INTO Loan (AccountID, Description, OriginalAmount, PaidAmount) "
        "VALUES ('L1', 'Car', 100, 1)");
    ClickNode("Car");
    int reads = 0;
    Grid().FetchColumnData().connect(
        [&reads](std::int32_t, std::int32_t, const Value&, Value&) { ++reads; });

    Grid().Redraw(false);
    GridWidget(window_).grab();
    EXPECT_EQ(reads, 0);

    Grid().Redraw(true);
    GridWidget(window_).grab();
    EXPECT_EQ(reads, 1);
}

class GroupedGridTest : public WindowTest {
protected:
    GroupedGridTest()
    {
        books_.Execute(
            "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
            "VALUES ('Rent', 500, 2006, 3, 'Home')");
        books_.Execute(
            "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
            "VALUES ('Fuel', 80, 2006, 3, 'Home')");
        ClickNode("Budget");
    }
    GridRowKind KindOf(std::size_t row) { return Grid().Rows().Kind(row); }
};

TEST_F(GroupedGridTest, AClickOnAHeadingsArrowFoldsItsGroupAndAnotherOpensIt)
{
    const QRect line = GridWidget(window_).Layout().RowRect(1);
    const QRect arrow(line.left(), line.top(), line.height(), line.height());
    ASSERT_EQ(KindOf(2), GridRowKind::Data);

    ClickAt(*GridWidget(window_).viewport(), arrow);
    EXPECT_EQ(KindOf(2), GridRowKind::NewRow);

    ClickAt(*GridWidget(window_).viewport(), arrow);
    EXPECT_EQ(KindOf(2), GridRowKind::Data);
}

TEST_F(GroupedGridTest, LeftAndRightFoldAndOpenTheHeading)
{
    ClickCell(1, 1);

    Key(GridWidget(window_), Qt::Key_Left);
    EXPECT_TRUE(Grid().Rows().Folded(1));

    Key(GridWidget(window_), Qt::Key_Right);
    EXPECT_FALSE(Grid().Rows().Folded(1));
}

TEST(CellTipTest, ATipKeepsTheLinesThatFitAndSaysThatThereAreMore)
{
    EXPECT_EQ(cell_tip::Prepare("one\r\ntwo\r\nthree", 5), "one\ntwo\nthree");
    EXPECT_EQ(cell_tip::Prepare("one\r\ntwo\r\nthree", 2), "one\ntwo\n...");
    EXPECT_EQ(cell_tip::Prepare("one\n\ntwo", 3), "one\n\ntwo");
}

TEST(CellTipTest, ATipIsNeverTakenForMarkup)
{
    EXPECT_TRUE(
        cell_tip::Prepare("<b>5</b> & more", 5).contains("&lt;b&gt;5&lt;/b&gt; &amp; more"));
}

}  // namespace
}  // namespace clb
