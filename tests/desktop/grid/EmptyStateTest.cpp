#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>

#include "desktop/grid/EmptyState.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::Contains;
using testing::Not;

class EmptyStateTest : public WindowTest {
protected:
    EmptyState& Hint() { return GridWidget(window_).Empty(); }
    std::vector<std::string> Texts()
    {
        std::vector<std::string> texts;
        for (const QLabel* label : Hint().findChildren<QLabel*>())
            texts.push_back(ToUtf8(label->text()));
        return texts;
    }
    QPushButton* Link(const char* caption)
    {
        for (QPushButton* link : Hint().findChildren<QPushButton*>())
            if (link->isVisible() && link->text() == caption)
                return link;
        return nullptr;
    }
    static void Click(QWidget* link)
    {
        ASSERT_TRUE(link);
        ClickAt(*link, link->rect());
    }
    void DeleteAccounts()
    {
        books_.Execute("DELETE FROM Account");
        Model().View().BuildTree();
        Model().View().Refresh();
        QTest::qWait(1);
    }
};

TEST_F(EmptyStateTest, RowsNeedNoHint)
{
    ClickNode("Checking");

    EXPECT_FALSE(Hint().isVisible());
}

TEST_F(EmptyStateTest, WithoutAnAccountTheWindowSaysHowToGetOne)
{
    DeleteAccounts();

    ASSERT_TRUE(Hint().isVisible());
    EXPECT_THAT(Texts(), Contains("No accounts yet"));
    Click(Link("New account"));
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Position(), 1);
    EXPECT_FALSE(Hint().isVisible());
}

TEST_F(EmptyStateTest, TheHintOffersANewAccountAlsoWhileThatCommandIsDisabled)
{
    DeleteAccounts();
    ASSERT_TRUE(Link("New account"));

    ClickCell(1, 1);

    ASSERT_FALSE(MenuAction("mnuE_New")->isEnabled());
    EXPECT_TRUE(Hint().isVisible());
    EXPECT_TRUE(Link("Import a statement"));
    Click(Link("New account"));
    EXPECT_TRUE(Grid().Editing());
}

TEST_F(EmptyStateTest, AMonthWithoutTransactionsIsNamed)
{
    ClickNode("Purse");
    EXPECT_THAT(Texts(), Contains("No transactions in March 2006"));

    MenuAction("Forward")->trigger();

    EXPECT_THAT(Texts(), Contains("No transactions in April 2006"));
    EXPECT_THAT(Texts(), Not(Contains("No transactions in March 2006")));
}

TEST_F(EmptyStateTest, AnEmptyMonthLinksToTheLatestOneWithTransactions)
{
    ClickNode("Checking");
    for (int month = 0; month < 3; ++month)
        MenuAction("Forward")->trigger();
    ASSERT_TRUE(Hint().isVisible());

    Click(Link("Go to March 2006"));

    EXPECT_EQ((Month{Model().View().Year(), Model().View().Period()}), (Month{2006, 3}));
    EXPECT_FALSE(Hint().isVisible());
}

TEST_F(EmptyStateTest, TheBudgetOfTheMonthBeforeIsCopiedByAClick)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('Rent', 500, 2006, 2, 'Home')");
    ClickNode("Budget");
    EXPECT_THAT(Texts(), Contains("No budget for March 2006"));

    Click(Link("Copy the previous month's budget"));

    EXPECT_EQ(books_.One("SELECT Category FROM Budget WHERE Period = 3"), "Rent");
    EXPECT_FALSE(Hint().isVisible());
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
}

TEST_F(EmptyStateTest, TheLinksAreReachedAndPressedByKeys)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('Rent', 500, 2006, 2, 'Home')");
    ClickNode("Budget");
    QWidget* link = Link("Copy the previous month's budget");
    ASSERT_TRUE(link);

    // Tab goes through the tree and the grid's cells first.
    for (int step = 0; step < 12 && QApplication::focusWidget() != link; ++step)
        Key(*QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), link);
    Key(*link, Qt::Key_Return);

    EXPECT_EQ(books_.One("SELECT Category FROM Budget WHERE Period = 3"), "Rent");
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(EmptyStateTest, TheHintIsBelowTheRowsAndHidesIfThereIsNoRoom)
{
    ClickNode("Purse");
    ASSERT_TRUE(Hint().isVisible());
    EXPECT_GT(Hint().y(), GridWidget(window_).Layout().RowRect(1).bottom());
    EXPECT_TRUE(GridWidget(window_).viewport()->rect().contains(Hint().geometry()));

    window_.InnerSize(700, 200);

    EXPECT_FALSE(Hint().isVisible());
}

TEST_F(EmptyStateTest, NoTextOfTheHintIsCutInANarrowWindow)
{
    window_.InnerSize(560, 460);
    ClickNode("Budget");

    ASSERT_TRUE(Hint().isVisible());
    for (const QLabel* label : Hint().findChildren<QLabel*>()) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        EXPECT_GE(label->width(), label->minimumSizeHint().width());
    }
    for (const QPushButton* link : Hint().findChildren<QPushButton*>())
        EXPECT_GE(link->width(), link->sizeHint().width());
}

}  // namespace
}  // namespace clb
