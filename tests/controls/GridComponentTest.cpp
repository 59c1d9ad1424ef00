// The grid at rest: columns, rows, groups, and the current cell.

#include "controls/GridComponent.h"
#include "tests/support/GridFixture.h"

namespace clb {
namespace {

class GridComponentTest : public testing::Test {
protected:
    GridComponentTest() : grid_("Grid", dates_)
    {
        FillShop(grid_.Array());
        grid_.RowColChange().connect([this](std::int32_t row, std::int32_t column) {
            events_.Note("RowColChange " + std::to_string(row) + " " + std::to_string(column));
        });
    }
    void GroupByCount()
    {
        grid_.Groups().push_back({shop::Count, "GroupingValue & ' (' & TotalChildCount & ')'"});
        grid_.Regroup();
    }
    GridRowKind Kind(std::size_t row) { return grid_.Rows().Kind(row); }
    std::string Name(std::size_t row) { return ToText(grid_.CellValue(row, shop::Name)); }

    IsoDateForm dates_;
    GridComponent grid_;
    GridEvents events_;
};

TEST_F(GridComponentTest, EveryFieldIsAColumnAndTheNewRowIsLast)
{
    ASSERT_EQ(grid_.Columns().Count(), 7);
    EXPECT_EQ(grid_.Columns().Item(shop::Price).caption, "Price");
    EXPECT_EQ(grid_.Columns().Item(shop::Price).dataType, FieldType::Money);
    EXPECT_EQ(grid_.Columns().Item(shop::Price).alignment, grid_align::kRight);
    ASSERT_EQ(grid_.Rows().Count(), 4U);
    EXPECT_EQ(Kind(3), GridRowKind::Data);
    EXPECT_EQ(Kind(4), GridRowKind::NewRow);
    EXPECT_EQ(grid_.Row(), 1U);
    EXPECT_EQ(grid_.Col(), 1);
    EXPECT_EQ(grid_.Position(), 0);
}

TEST_F(GridComponentTest, AResultSetTakesTheArraysPlace)
{
    grid_.DataSource(nullptr);

    EXPECT_EQ(grid_.Columns().Count(), 0);
    EXPECT_EQ(grid_.Rows().Count(), 0U);
    EXPECT_EQ(grid_.Row(), 0U);

    grid_.Array().Show();
    EXPECT_EQ(grid_.Rows().Count(), 4U);
}

TEST_F(GridComponentTest, MovingRaisesRowColChangeOnceWithTheNewCell)
{
    EXPECT_TRUE(grid_.MoveTo(3, shop::Price));

    EXPECT_EQ(events_.Take(), std::vector<std::string>{"RowColChange 3 3"});
}

TEST_F(GridComponentTest, ThereIsNoRowAndNoColumnBeyondTheEnds)
{
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.MoveTo(5, 1); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.MoveTo(0, 1); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.MoveTo(1, 8); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.Col(0); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(grid_.Row(), 1U);
    EXPECT_TRUE(events_.Take().empty());
}

TEST_F(GridComponentTest, AKeyLeadsToItsRowAndNullToTheNewOne)
{
    grid_.MoveToRowKey(13);
    EXPECT_EQ(grid_.Row(), 3U);

    grid_.MoveToRowKey(Null{});
    EXPECT_EQ(grid_.Row(), 4U);
    EXPECT_EQ(grid_.Position(), 1);

    EXPECT_EQ(RuntimeErrorOf([this] { grid_.MoveToRowKey(99); }), errors::ElementNotFound);
    EXPECT_EQ(grid_.Row(), 4U);
}

TEST_F(GridComponentTest, AMovedColumnPushesThoseBetweenByOne)
{
    GridColumns& columns = grid_.Columns();

    columns.Position(shop::Weight, 2);

    EXPECT_EQ(columns.Displayed(), (std::vector<std::int32_t>{1, 7, 2, 3, 4, 5, 6}));
    EXPECT_EQ(columns.Position(shop::Name), 3);
}

TEST_F(GridComponentTest, HiddenColumnsTakeNoRoom)
{
    GridColumns& columns = grid_.Columns();
    columns.Item(shop::Key).width = 50;
    columns.Item(shop::Name).width = 70;
    columns.Item(shop::Key).hidden = true;

    EXPECT_EQ(columns.Left(shop::Name), 0);
    EXPECT_EQ(columns.Left(shop::Price), 70);
}

TEST_F(GridComponentTest, AWidthSetByHandIsReportedAndNeverTooNarrowToGrab)
{
    std::vector<std::int32_t> reported;
    grid_.ColumnResized().connect([&](std::int32_t column, std::int32_t pixels) {
        reported.push_back(column);
        reported.push_back(pixels);
    });

    grid_.ResizeColumn(shop::Name, 130);
    grid_.ResizeColumn(shop::Name, -5);

    EXPECT_EQ(reported, (std::vector<std::int32_t>{shop::Name, 130, shop::Name, 24}));
    EXPECT_EQ(grid_.Columns().Item(shop::Name).width, 24);
}

TEST_F(GridComponentTest, RowsOfAGroupAreShownBetweenHeadingAndFooter)
{
    grid_.Array().Add({14, std::string("Dill"), Money(), 5});
    GroupByCount();

    ASSERT_EQ(grid_.Rows().Count(), 11U);
    EXPECT_EQ(grid_.Rows().HeadingText(1), "5 (2)");
    EXPECT_EQ(Name(2), "Apples");
    EXPECT_EQ(Name(3), "Dill");
    EXPECT_EQ(Kind(4), GridRowKind::GroupFooter);
    EXPECT_EQ(grid_.Rows().GroupValue(4), "5");
    EXPECT_EQ(grid_.Rows().HeadingText(5), "1 (1)");
    EXPECT_EQ(Kind(11), GridRowKind::NewRow);
    EXPECT_EQ(grid_.Row(), 2U) << "the first data row, not the heading";
}

TEST_F(GridComponentTest, AFoldedGroupHidesItsRowsAndFooter)
{
    GroupByCount();

    EXPECT_TRUE(grid_.Fold(1, true));

    EXPECT_EQ(grid_.Rows().Count(), 8U);
    EXPECT_TRUE(grid_.Rows().Folded(1));
    EXPECT_EQ(grid_.Rows().HeadingText(2), "1 (1)");
}

TEST_F(GridComponentTest, TheHeadingBecomesCurrentWhenTheCurrentRowIsFoldedAway)
{
    GroupByCount();
    grid_.MoveTo(5, shop::Name);
    events_.Take();

    grid_.Fold(4, true);

    EXPECT_EQ(grid_.Row(), 4U);
    EXPECT_EQ(events_.Take(), std::vector<std::string>{"RowColChange 4 2"});
}

TEST_F(GridComponentTest, FoldingAboveKeepsTheCurrentRow)
{
    GroupByCount();
    grid_.MoveToRowKey(13);
    ASSERT_EQ(grid_.Row(), 8U);

    grid_.Fold(1, true);
    EXPECT_EQ(grid_.Row(), 6U);
    EXPECT_EQ(ToText(grid_.ColumnValue(shop::Name)), "Cheese");

    grid_.Fold(1, false);
    EXPECT_EQ(grid_.Row(), 8U);
    EXPECT_EQ(ToText(grid_.ColumnValue(shop::Name)), "Cheese");
}

TEST_F(GridComponentTest, OnlyHeadingsFold)
{
    GroupByCount();

    EXPECT_TRUE(grid_.Fold(2, true));

    EXPECT_EQ(grid_.Rows().Count(), 10U);
}

TEST_F(GridComponentTest, ReadingTheRowsAgainKeepsGroupsFolded)
{
    GroupByCount();
    grid_.Fold(1, true);

    grid_.RefetchRows();

    EXPECT_TRUE(grid_.Rows().Folded(1));
}

TEST_F(GridComponentTest, ARememberedPlaceFollowsItsRow)
{
    grid_.MoveTo(3, shop::Price);
    const auto spot = grid_.CurrentSpot();
    grid_.Array().Delete(0);
    grid_.RefetchRows();

    grid_.ReturnTo(spot);

    EXPECT_EQ(Name(grid_.Row()), "Cheese");
    EXPECT_EQ(grid_.Col(), shop::Price);
}

TEST_F(GridComponentTest, ARememberedRowThatIsGoneLeavesItsPlace)
{
    grid_.MoveTo(2, shop::Name);
    const auto spot = grid_.CurrentSpot();
    grid_.Array().Delete(1);
    grid_.RefetchRows();

    grid_.ReturnTo(spot);

    EXPECT_EQ(Name(grid_.Row()), "Cheese");
}

TEST_F(GridComponentTest, ARememberedColumnThatIsGoneLeadsToTheNearest)
{
    grid_.MoveTo(2, shop::Weight);
    const auto spot = grid_.CurrentSpot();
    grid_.Array().Fields({{"Sequence", FieldType::Long, 0, false, true},
                          {"Name", FieldType::Text, 10, true, false}});
    grid_.Array().Add({12, std::string("Bread")});
    grid_.Array().Show();

    grid_.ReturnTo(spot);

    EXPECT_EQ(grid_.Col(), 2);
}

TEST_F(GridComponentTest, CellsShowAmountsWithTwoDecimalsAndGrouping)
{
    grid_.Array().Add({14, std::string("Gold"), Money::FromDouble(-1234567.891), Null{},
                       *Date::Of(2006, 3, 5), Null{}, 1.5});
    grid_.RefetchRows();

    EXPECT_EQ(grid_.CellText(4, shop::Price), "-1,234,567.89");
    EXPECT_EQ(grid_.CellText(4, shop::Day), "2006-03-05");
    EXPECT_EQ(grid_.CellText(4, shop::Weight), "1.5");
    EXPECT_EQ(grid_.CellText(4, shop::Count), "");
}

TEST_F(GridComponentTest, ACalculatedColumnIsFetchedForDataRowsOnly)
{
    GridColumn column;
    column.dataType = FieldType::Double;
    const std::int32_t total = grid_.Columns().Add(column);
    std::vector<std::int32_t> asked;
    grid_.FetchColumnData().connect(
        [&](std::int32_t row, std::int32_t, const Value&, Value& value) {
            asked.push_back(row);
            value = 4;
        });

    EXPECT_EQ(grid_.CellText(2, total), "4.00");
    EXPECT_EQ(grid_.CellText(4, total), "");
    EXPECT_EQ(asked, std::vector<std::int32_t>{2});
}

TEST_F(GridComponentTest, TipsAreFetchedOnlyWhenTheyAreOn)
{
    int asked = 0;
    grid_.FetchCellTip().connect([&](std::int32_t, std::int32_t, std::int32_t, std::string& text) {
        ++asked;
        text = "tip";
    });

    EXPECT_EQ(grid_.CellTip(1, 1), std::nullopt);
    grid_.CellTips(2);
    EXPECT_EQ(grid_.CellTip(1, 1), "tip");
    EXPECT_EQ(grid_.CellTip(4, 1), std::nullopt) << "the new row has none";
    EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace clb
