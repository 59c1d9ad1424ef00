// The budget as it is drawn and used by hand.
#include <QToolTip>

#include "data/ViewColumns.h"
#include "desktop/look/GridColors.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class BudgetGridTest : public WindowTest {
protected:
    BudgetGridTest()
    {
        AddLine("Food", -10, "Home");
        AddLine("Rent", -500, "Home");
        AddLine("Salary", 2000, "Income");
        books_.Execute("UPDATE Trans SET Category = 'Food'");
        ClickNode("Budget");
    }
    void AddLine(const std::string& category, int amount, const std::string& group, int period = 3)
    {
        books_.Execute(
            "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) VALUES ('" +
            category + "', " + std::to_string(amount) + ", 2006, " + std::to_string(period) +
            ", '" + group + "')");
    }
    bool Warns(std::size_t row, std::int32_t column)
    {
        return Grid().Warns(row, column, Grid().CellText(row, column));
    }
    bool HomeFolded()
    {
        const GridRows& rows = Grid().Rows();
        return rows.Folded(rows.OfGroup(GridRowKind::GroupHeading, "Home"));
    }
    void Press(Qt::Key key) { Key(GridWidget(window_), key); }
};

TEST_F(BudgetGridTest, OnlyWhatIsOverspentIsAWarning)
{
    ASSERT_EQ(Grid().CellText(2, Budget::Category), "Food");
    ASSERT_EQ(Grid().CellText(2, Budget::Actual), "-18.00");
    ASSERT_EQ(Grid().CellText(2, Budget::Difference), "-8.00");
    EXPECT_TRUE(Warns(2, Budget::Actual));
    EXPECT_TRUE(Warns(2, Budget::Difference));
    EXPECT_FALSE(Warns(2, Budget::Amount));
    // Nothing was spent on the rent yet, and the salary has not come yet.
    ASSERT_EQ(Grid().CellText(3, Budget::Amount), "-500.00");
    ASSERT_EQ(Grid().CellText(6, Budget::Actual), "0.00");
    ASSERT_EQ(Grid().CellText(6, Budget::Difference), "-2,000.00");
    for (const std::size_t row : {3U, 6U})
        for (const std::int32_t column : {Budget::Amount, Budget::Actual, Budget::Difference})
            EXPECT_FALSE(Warns(row, column)) << row << ' ' << column;
}

/// A corner says it to whoever does not see red from black.
TEST_F(BudgetGridTest, AWarningIsNotOnlyAColor)
{
    const QImage picture = GridWidget(window_).viewport()->grab().toImage();
    const auto corner = [&](std::size_t row, std::int32_t column) {
        const QPoint place =
            GridWidget(window_).Layout().CellRect(row, column).topLeft() + QPoint(2, 2);
        return picture.pixelColor((QPointF(place) * picture.devicePixelRatio()).toPoint());
    };

    EXPECT_EQ(corner(2, Budget::Difference), GridColors(GridWidget(window_).palette()).negative);
    EXPECT_NE(corner(2, Budget::Difference), corner(3, Budget::Difference));
    EXPECT_EQ(Grid().WarningOf(2, Budget::Difference), "overspent");
    EXPECT_EQ(Grid().WarningOf(3, Budget::Difference), "");
}

TEST_F(BudgetGridTest, SpendingWithinTheBudgetIsNoWarning)
{
    books_.Execute("UPDATE Budget SET Amount = -18 WHERE Category = 'Food'");
    Model().View().Refresh();

    EXPECT_FALSE(Warns(2, Budget::Actual));
    EXPECT_FALSE(Warns(2, Budget::Difference));
}

TEST_F(BudgetGridTest, KeysAndClicksPassTheFooters)
{
    ASSERT_EQ(Grid().Rows().Kind(4), GridRowKind::GroupFooter);
    ClickCell(3, 1);
    Press(Qt::Key_Down);
    EXPECT_EQ(Grid().Row(), 5U);
    Press(Qt::Key_Up);
    EXPECT_EQ(Grid().Row(), 3U);

    ClickAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().RowRect(4));
    EXPECT_EQ(Grid().Row(), 3U);
    EXPECT_FALSE(GridWidget(window_).GoTo(4, 1));
    EXPECT_EQ(Grid().Row(), 3U);
}

TEST_F(BudgetGridTest, FoldedGroupsStayFoldedOverAReloadAMonthStepAndACopy)
{
    AddLine("Food", -10, "Home", 4);
    ClickCell(1, 1);
    Press(Qt::Key_Left);
    ASSERT_TRUE(Grid().Rows().Folded(1));

    Model().View().Refresh();
    EXPECT_TRUE(HomeFolded());
    Model().StepMonth(1);
    EXPECT_TRUE(HomeFolded());
    MenuAction("mnuE_Copy")->trigger();
    EXPECT_TRUE(HomeFolded());
    Model().StepMonth(1);
    ASSERT_EQ(Grid().Rows().Count(), 1U);
    Model().StepMonth(-1);
    EXPECT_TRUE(HomeFolded());
}

TEST_F(BudgetGridTest, ATipGoesWhenItsRowGoes)
{
    ClickCell(2, 1);
    Key(GridWidget(window_), Qt::Key_F1, Qt::ControlModifier);
    ASSERT_TRUE(QToolTip::text().contains("2006-03-01"));

    Model().StepMonth(1);

    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));
}

}  // namespace
}  // namespace clb
