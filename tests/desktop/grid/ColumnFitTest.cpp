// How the widths of the columns follow what they show.
#include <QScrollBar>

#include "data/ViewColumns.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class ColumnFitTest : public WindowTest {
protected:
    ColumnFitTest()
    {
        window_.InnerSize(1000, 500);
        books_.Execute(std::string("UPDATE Trans SET Category = '") + kLong +
                       "' WHERE PayeeName = 'Baker 02'");
    }
    int WidthOf(std::int32_t column)
    {
        return GridWidget(window_).Layout().CellRect(1, column).width();
    }
    int Needed(const char* text)
    {
        return GridWidget(window_).fontMetrics().horizontalAdvance(QLatin1String(text));
    }
    void ShowChecking()
    {
        ClickNode("Checking");
        QTest::qWait(1);
    }

    static constexpr const char* kLong = "Electricity and heating";
};

TEST_F(ColumnFitTest, ATextThatWouldBeCutGetsRoomFromColumnsWithMoreThanTheyNeed)
{
    ShowChecking();

    EXPECT_GT(WidthOf(Register::Category), Needed(kLong));
    EXPECT_GT(WidthOf(Register::Category), Grid().Columns().Item(Register::Category).width);
    EXPECT_LE(GridWidget(window_).Layout().TotalWidth(),
              GridWidget(window_).viewport()->width() - grid_metrics::kSelector);
}

TEST_F(ColumnFitTest, TheColumnsDoNotMoveFromMonthToMonth)
{
    ShowChecking();
    const int width = WidthOf(Register::Category);

    MenuAction("Forward")->trigger();
    QTest::qWait(1);

    EXPECT_EQ(WidthOf(Register::Category), width);
}

/// Symptom: the budget, whose last column has no part of the width, could be scrolled by a few
/// pixels.
TEST_F(ColumnFitTest, NothingIsScrolledSidewaysBeforeTheUserHasSetAWidth)
{
    for (const char* category : {"Rent", "Fuel", "Books"})
        books_.Execute(std::string("INSERT INTO Budget (Category, Amount, [Year], Period, "
                                   "CategoryGroup) VALUES ('") +
                       category + "', 500, 2006, 3, 'Getting Around')");
    window_.InnerSize(900, 300);

    for (const char* node : {"Net Worth", "Budget", "Bank", "Checking", "Car"}) {
        ClickNode(node);
        QTest::qWait(1);
        EXPECT_EQ(GridWidget(window_).horizontalScrollBar()->maximum(), 0) << node;
    }
}

TEST_F(ColumnFitTest, AWidthThatTheUserHasSetIsLeftAlone)
{
    ShowChecking();
    const int wished = Needed("Category") + 40;

    Grid().ResizeColumn(Register::Category, wished);
    QTest::qWait(1);

    EXPECT_EQ(WidthOf(Register::Category), wished);
}

TEST_F(ColumnFitTest, TotalsEndWhereTheirColumnsAreDrawnToEnd)
{
    const GridView& grid = GridWidget(window_);
    const auto end = [&grid](std::int32_t column) {
        return grid.x() + grid.Layout().CellRect(1, column).right();
    };
    ClickNode("Net Worth");
    QTest::qWait(1);
    EXPECT_EQ(FirstTotal(window_)->geometry().right(), end(NetWorth::OpeningBalance));
    EXPECT_EQ(SecondTotal(window_)->geometry().right(), end(NetWorth::TotalBalance));

    ShowChecking();
    EXPECT_EQ(FirstTotal(window_)->geometry().right(), end(Register::Amount));
}

}  // namespace
}  // namespace clb
