// The greeting of a fresh book in the window.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>

#include "desktop/grid/EmptyState.h"
#include "desktop/look/Colors.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::ElementsAre;

class GreetingWindowTest : public WindowTest {
protected:
    GreetingWindowTest()
    {
        books_.Execute("DELETE FROM Trans");
        books_.Execute("DELETE FROM Account");
        Model().View().BuildTree();
        Model().View().Refresh();
        QTest::qWait(1);
        window_.OnDemo([this] { ++demos_; });
    }
    EmptyState& Hint() { return GridWidget(window_).Empty(); }
    std::vector<WayButton*> Ways()
    {
        std::vector<WayButton*> shown;
        for (WayButton* way : Hint().findChildren<WayButton*>())
            if (way->isVisible())
                shown.push_back(way);
        return shown;
    }
    std::vector<std::string> Captions()
    {
        std::vector<std::string> captions;
        for (const WayButton* way : Ways())
            captions.push_back(ToUtf8(way->text()));
        return captions;
    }
    WayButton& Way(const char* caption)
    {
        for (WayButton* way : Ways())
            if (way->text() == caption)
                return *way;
        throw std::runtime_error(std::string("no way ") + caption);
    }
    void TabTo(const QWidget& way)
    {
        TreeWidget(window_).setFocus(Qt::TabFocusReason);
        for (int step = 0; step < 12 && QApplication::focusWidget() != &way; ++step)
            Key(*QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), &way);
    }
    /// No word is cut, and no part lies over another.
    void ExpectWhole()
    {
        const QRect room = GridWidget(window_).viewport()->rect();
        EXPECT_TRUE(room.contains(Hint().geometry()));
        EXPECT_GT(Hint().y(), GridWidget(window_).Layout().RowRect(1).bottom());
        QRegion taken;
        for (QWidget* part : Hint().findChildren<QWidget*>()) {
            if (!part->isVisible())
                continue;
            EXPECT_TRUE(Hint().rect().contains(part->geometry()));
            EXPECT_GE(part->width(), part->minimumSizeHint().width());
            EXPECT_GE(part->height(), part->hasHeightForWidth()
                                          ? part->heightForWidth(part->width())
                                          : part->minimumSizeHint().height());
            EXPECT_FALSE(taken.intersects(part->geometry()));
            taken += part->geometry();
        }
    }

    int demos_ = 0;
};

TEST_F(GreetingWindowTest, AFreshBookShowsThreeLargeWays)
{
    ASSERT_TRUE(Hint().isVisible());
    EXPECT_THAT(Captions(),
                ElementsAre("Import a statement", "Make an account", "Look at the demo"));
    EXPECT_GE(Ways().front()->height(), 4 * window_.fontMetrics().height());
    ExpectWhole();
}

TEST_F(GreetingWindowTest, ImportRunsTheCommand)
{
    ClickAt(Way("Import a statement"), Way("Import a statement").rect());

    EXPECT_EQ(books_.files.questions.size(), 1U);
}

TEST_F(GreetingWindowTest, MakingAnAccountBeginsANewRowAndEscapeBringsTheGreetingBack)
{
    ClickAt(Way("Make an account"), Way("Make an account").rect());
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Position(), 1);
    EXPECT_FALSE(Hint().isVisible());

    Key(*QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(Hint().isVisible());
}

TEST_F(GreetingWindowTest, TheWaysAreReachedByTabFromTheTreeAndPressedByEnter)
{
    TabTo(Way("Import a statement"));
    Key(*QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Way("Make an account"));
    Key(*QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Way("Look at the demo"));

    Key(Way("Look at the demo"), Qt::Key_Return);
    EXPECT_EQ(demos_, 1);
}

TEST_F(GreetingWindowTest, ItGoesWithTheFirstAccount)
{
    books_.AddAccount("P1", "Cash", "Purse");
    Model().View().BuildTree();
    Model().View().Refresh();
    QTest::qWait(1);

    EXPECT_FALSE(Hint().isVisible());
}

TEST_F(GreetingWindowTest, ScreenReadersGetCaptionAndExplanation)
{
    WayButton& way = Way("Look at the demo");
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&way);
    ASSERT_TRUE(spoken);

    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(ToUtf8(spoken->text(QAccessible::Name)), "Look at the demo");
    EXPECT_EQ(ToUtf8(spoken->text(QAccessible::Description)),
              "See two years of a made-up household. Your own book stays as it is.");
    EXPECT_EQ(ToUtf8(Hint().Words()),
              "Welcome to Corvane Ledgerbook. This book is still empty. Choose how you would like "
              "to begin. Links: Import a statement, Make an account, Look at the demo.");
}

TEST_F(GreetingWindowTest, InASmallWindowItHasFewerWordsButAllThreeWays)
{
    for (const int points : {0, 18}) {
        if (points != 0) {
            QFont large = window_.font();
            large.setPointSize(points);
            window_.setFont(large);
        }
        for (const QSize size : {QSize(1160, 700), QSize(820, 520), QSize(700, 460),
                                 QSize(600, 400), QSize(560, 640)}) {
            window_.InnerSize(size.width(), size.height());
            QTest::qWait(1);
            SCOPED_TRACE(testing::Message()
                         << size.width() << "x" << size.height() << ", font " << points);

            ASSERT_TRUE(Hint().isVisible());
            EXPECT_EQ(Ways().size(), 3U);
            ExpectWhole();
        }
    }
}

TEST_F(GreetingWindowTest, TheHintOfAnotherViewIsDrawnWithLinks)
{
    ClickNode("Budget");

    ASSERT_TRUE(Hint().isVisible());
    for (const WayButton* way : Ways())
        EXPECT_LT(way->height(), 2 * window_.fontMetrics().height());
    ClickNode("Net Worth");
    EXPECT_GE(Ways().front()->height(), 4 * window_.fontMetrics().height());
}

TEST_F(GreetingWindowTest, TheDemonstrationsWindowSaysSoAndIsClosedByItsButton)
{
    window_.ShowAsDemo();
    QTest::qWait(1);

    EXPECT_EQ(ToUtf8(window_.windowTitle()), "Net Worth - Corvane Ledgerbook (demo)");
    ClickNode("Budget");
    EXPECT_EQ(ToUtf8(window_.windowTitle()), "Budget - Corvane Ledgerbook (demo)");
    auto& bar = Find<QWidget>(window_, "DemoBar");
    ASSERT_TRUE(bar.isVisible());
    auto* close = bar.findChild<QPushButton*>();
    ClickAt(*close, close->rect());

    EXPECT_FALSE(window_.isVisible());
    EXPECT_FALSE(Model().Loaded());
}

}  // namespace
}  // namespace clb
