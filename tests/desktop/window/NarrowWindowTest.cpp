// The tree in a window that is too narrow for tree and grid side by side.
#include <QToolButton>

#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class NarrowWindowTest : public WindowTest {
protected:
    NarrowWindowTest() { Resize(600); }
    void Resize(int width)
    {
        window_.InnerSize(width, 400);
        QTest::qWait(1);
    }
    QToolButton& Button() { return Find<QToolButton>(window_, "TreeFold"); }
    void PressButton()
    {
        QTest::mouseClick(&Button(), Qt::LeftButton);
        QTest::qWait(1);
    }
};

TEST_F(NarrowWindowTest, TheTreeFoldsIntoAButtonAndComesBack)
{
    EXPECT_FALSE(TreeWidget(window_).isVisible());
    EXPECT_TRUE(Button().isVisible());
    EXPECT_LT(GridWidget(window_).x(), 5);
    EXPECT_GT(GridWidget(window_).width(), 590);
    EXPECT_TRUE(GridWidget(window_).hasFocus());

    Resize(800);
    EXPECT_TRUE(TreeWidget(window_).isVisible());
    EXPECT_FALSE(Button().isVisible());
    EXPECT_GT(GridWidget(window_).x(), TreeWidget(window_).width());
}

TEST_F(NarrowWindowTest, TheButtonShowsTheTreeAndAChosenNodeHidesIt)
{
    PressButton();
    ASSERT_TRUE(TreeWidget(window_).isVisible());
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
    EXPECT_LT(GridWidget(window_).x(), 5);

    ClickNode("Checking");
    QTest::qWait(1);

    EXPECT_FALSE(TreeWidget(window_).isVisible());
    EXPECT_TRUE(GridWidget(window_).hasFocus());
    EXPECT_EQ(Grid().Rows().Count(), 5U);
}

TEST_F(NarrowWindowTest, TheButtonEscapeAndAClickIntoTheGridHideTheTree)
{
    PressButton();
    PressButton();
    EXPECT_FALSE(TreeWidget(window_).isVisible());

    PressButton();
    Key(TreeWidget(window_), Qt::Key_Escape);
    QTest::qWait(1);
    EXPECT_FALSE(TreeWidget(window_).isVisible());

    PressButton();
    ClickAt(*GridWidget(window_).viewport(), QRect(500, 100, 10, 10));
    EXPECT_FALSE(TreeWidget(window_).isVisible());
}

TEST_F(NarrowWindowTest, KeysGoThroughTheTreeWithoutHidingIt)
{
    PressButton();
    Key(TreeWidget(window_), Qt::Key_Down);
    EXPECT_TRUE(TreeWidget(window_).isVisible());
    EXPECT_EQ(Model().TreeView.Selected(), 2);

    Key(TreeWidget(window_), Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

}  // namespace
}  // namespace clb
