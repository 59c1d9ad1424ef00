// Marking and sorting rows by hand, and the running balance beside them.
#include <QMouseEvent>

#include "data/ViewColumns.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/window/NoticeLabel.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class GridMarkingTest : public WindowTest {
protected:
    GridMarkingTest()
    {
        window_.resize(1160, 700);
        ClickNode("Checking");
        ClickCell(1, 2);
    }
    void ClickRow(std::size_t row, Qt::KeyboardModifiers held)
    {
        QTest::mouseClick(GridWidget(window_).viewport(), Qt::LeftButton, held,
                          GridWidget(window_).Layout().CellRect(row, 2).center());
        QTest::qWait(1);
    }
    void ClickHeading(std::int32_t column)
    {
        const QRect cell = GridWidget(window_).Layout().CellRect(1, column);
        QTest::mouseClick(&GridWidget(window_).Header(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(cell.center().x(), 8));
        QTest::qWait(1);
    }
    std::string Panel() { return ToUtf8(Find<QLabel>(window_, "notice").text()); }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        Key(GridWidget(window_), key, held);
    }
};

TEST_F(GridMarkingTest, ControlAndShiftWithAClickMarkRowsAndThePanelSumsThem)
{
    ClickRow(3, Qt::ControlModifier);
    EXPECT_EQ(Panel(), "2 rows, -9.00");
    EXPECT_EQ(Grid().Row(), 3U);

    ClickRow(4, Qt::ShiftModifier);
    EXPECT_EQ(Panel(), "2 rows, -9.00");
    ClickRow(1, Qt::ShiftModifier);
    EXPECT_EQ(Panel(), "3 rows, -13.50");

    ClickRow(2, Qt::NoModifier);
    EXPECT_EQ(Panel(), "");
}

TEST_F(GridMarkingTest, ShiftWithArrowsMarksAndOtherKeysUnmark)
{
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Panel(), "3 rows, -13.50");
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Panel(), "2 rows, -9.00");

    Press(Qt::Key_Escape);
    EXPECT_EQ(Panel(), "");
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down);
    EXPECT_EQ(Panel(), "");
}

TEST_F(GridMarkingTest, AMarkedRowLooksMarked)
{
    ClickRow(3, Qt::ControlModifier);
    Press(Qt::Key_Left);
    const QImage picture = GridWidget(window_).viewport()->grab().toImage();
    const QRect one = GridWidget(window_).Layout().CellRect(1, 4);
    const QRect other = GridWidget(window_).Layout().CellRect(2, 4);
    const qreal scale = picture.devicePixelRatio();

    EXPECT_NE(picture.pixelColor((QPointF(one.center()) * scale).toPoint()),
              picture.pixelColor((QPointF(other.center()) * scale).toPoint()));
}

TEST_F(GridMarkingTest, ClicksOnAHeadingSortTheViewAndAThirdOneTakesItBack)
{
    ASSERT_EQ(Grid().CellText(1, Register::PostDate), "2006-03-04");

    ClickHeading(Register::PostDate);
    EXPECT_EQ(Grid().CellText(1, Register::PostDate), "2006-03-01");
    EXPECT_EQ(Grid().Row(), 4U);
    ClickHeading(Register::PostDate);
    EXPECT_EQ(Grid().CellText(1, Register::PostDate), "2006-03-04");
    EXPECT_TRUE(Grid().Rows().Sort().descending);
    ClickHeading(Register::PostDate);
    EXPECT_EQ(Grid().Rows().Sort().column, 0);
    EXPECT_EQ(Grid().Row(), 1U);
}

TEST_F(GridMarkingTest, TheRunningBalanceIsDrawnWhereThereIsRoomForIt)
{
    const GridLayout& layout = GridWidget(window_).Layout();
    GridWidget(window_).viewport()->repaint();
    EXPECT_GT(layout.SideWidth(), 0);
    EXPECT_LE(layout.SideRect(1).right(), GridWidget(window_).viewport()->width());

    window_.resize(560, 400);
    QTest::qWait(1);
    EXPECT_EQ(layout.SideWidth(), 0);
}

}  // namespace
}  // namespace clb
