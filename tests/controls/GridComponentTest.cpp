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

TEST_F(GridComponentTest, KeptFoldsSurviveNewRowsAndTheGroupsAbsence)
{
    grid_.KeepFolds(true);
    GroupByCount();
    ASSERT_EQ(grid_.Rows().HeadingText(1), "5 (1)");
    ASSERT_TRUE(grid_.Fold(1, true));

    grid_.Array().Clear();
    grid_.Array().Show();
    GroupByCount();
    grid_.Array().Add({21, std::string("Dates"), Money::FromUnits(4), 5});
    grid_.Array().Add({22, std::string("Eggs"), Money::FromUnits(4), 1});
    grid_.Array().Show();
    GroupByCount();

    EXPECT_TRUE(grid_.Rows().Folded(1));
    EXPECT_FALSE(grid_.Rows().Folded(2));
}

TEST_F(GridComponentTest, WithoutKeptFoldsNewRowsAreOpen)
{
    GroupByCount();
    ASSERT_TRUE(grid_.Fold(1, true));

    grid_.Array().Show();
    GroupByCount();

    EXPECT_FALSE(grid_.Rows().Folded(1));
}

TEST_F(GridComponentTest, AFooterIsPassedWhenTheLastRowOfAGroupIsDeleted)
{
    grid_.PassFooters(true);
    grid_.Array().Add({14, std::string("Dates"), Money::FromUnits(4), 5});
    grid_.Array().Show();
    GroupByCount();
    ASSERT_EQ(Name(3), "Dates");
    ASSERT_TRUE(grid_.MoveTo(3, shop::Name));

    ASSERT_TRUE(grid_.Delete());

    EXPECT_EQ(grid_.Rows().Kind(3), GridRowKind::GroupFooter);
    EXPECT_EQ(grid_.Row(), 4U);
}

TEST_F(GridComponentTest, SortingMovesTheRowsAndKeepsTheCurrentOneAndTheNewRowLast)
{
    ASSERT_TRUE(grid_.MoveTo(3, shop::Price));

    ASSERT_TRUE(grid_.SortBy({shop::Count, false}));
    EXPECT_EQ(Name(1) + Name(2) + Name(3), "BreadCheeseApples");
    EXPECT_EQ(Kind(4), GridRowKind::NewRow);
    EXPECT_EQ(grid_.Row(), 2U);

    ASSERT_TRUE(grid_.SortBy({shop::Name, true}));
    EXPECT_EQ(Name(1) + Name(2) + Name(3), "CheeseBreadApples");
    EXPECT_EQ(grid_.Row(), 1U);

    ASSERT_TRUE(grid_.SortBy({}));
    EXPECT_EQ(Name(1) + Name(2) + Name(3), "ApplesBreadCheese");
    EXPECT_EQ(grid_.Row(), 3U);
}

TEST_F(GridComponentTest, ASavedRowTakesItsPlaceInTheShownOrder)
{
    ASSERT_TRUE(grid_.SortBy({shop::Count, false}));
    ASSERT_TRUE(grid_.MoveTo(1, shop::Count));

    grid_.ColumnValue(shop::Count, std::int32_t{9});
    ASSERT_TRUE(grid_.Update());

    EXPECT_EQ(Name(1) + Name(2) + Name(3), "CheeseApplesBread");
    EXPECT_EQ(grid_.Row(), 3U);
    EXPECT_EQ(ToText(grid_.ColumnValue(shop::Name)), "Bread");
}

TEST_F(GridComponentTest, RowsOfAGroupAreSortedAmongThemselves)
{
    grid_.Array().Add({14, std::string("Dates"), Money::FromUnits(1), 5});
    grid_.Array().Show();
    GroupByCount();

    ASSERT_TRUE(grid_.SortBy({shop::Price, false}));

    EXPECT_EQ(grid_.Rows().HeadingText(1), "5 (2)");
    EXPECT_EQ(Name(2) + Name(3), "DatesApples");
}

TEST_F(GridComponentTest, CalculatedCellsAreSortedByTheirValuesThoughARowIsCurrent)
{
    GridColumn column;
    column.caption = "Twice";
    column.dataType = FieldType::Double;
    const std::int32_t twice = grid_.Columns().Add(column);
    grid_.FetchColumnData().connect(
        [this](std::int32_t row, std::int32_t, const Value&, Value& value) {
            value = 2 * ToDouble(grid_.CellValue(static_cast<std::size_t>(row), shop::Count));
        });
    grid_.MoveTo(2, shop::Name);

    ASSERT_TRUE(grid_.SortBy({twice, true}));
    EXPECT_EQ(Name(1) + Name(2) + Name(3), "ApplesCheeseBread");
    EXPECT_EQ(grid_.Row(), 3U);
}

TEST_F(GridComponentTest, ARefusedRowIsNotSortedAway)
{
    grid_.BeforeUpdate().connect([](bool& cancel) { cancel = true; });
    grid_.ColumnValue(shop::Count, std::int32_t{9});

    EXPECT_FALSE(grid_.SortBy({shop::Count, false}));
    EXPECT_EQ(Name(2) + Name(3), "BreadCheese");
}

TEST_F(GridComponentTest, TogglingMarksTheRowOneComesFromToo)
{
    GridMarks& marks = grid_.Marks();
    const auto identity = [this](std::size_t row) { return grid_.Rows().Identity(row); };

    marks.Toggle(grid_.Rows(), 3, identity(1));
    EXPECT_EQ(marks.Count(), 2U);
    EXPECT_FALSE(marks.Contains(identity(2)));
    marks.Toggle(grid_.Rows(), 1, identity(3));
    EXPECT_EQ(marks.Count(), 1U);
    EXPECT_TRUE(marks.Contains(identity(3)));
    marks.Toggle(grid_.Rows(), 4, identity(3));
    EXPECT_EQ(marks.Count(), 1U);
}

TEST_F(GridComponentTest, ExtendingMarksARangeFromWhereItBeganOverOtherLines)
{
    GroupByCount();
    GridMarks& marks = grid_.Marks();
    const std::size_t first = grid_.Rows().Identity(2);

    marks.Extend(grid_.Rows(), 8, first);
    EXPECT_EQ(marks.Count(), 3U);
    marks.Extend(grid_.Rows(), 5, grid_.Rows().Identity(8));
    EXPECT_EQ(marks.Count(), 2U);
    EXPECT_TRUE(marks.Contains(first));
}

TEST_F(GridComponentTest, MarksFollowTheirRowsAndGoWithOtherRows)
{
    int changes = 0;
    grid_.Marks().Changed().connect([&changes] { ++changes; });
    grid_.Marks().Toggle(grid_.Rows(), 1, 0);
    grid_.SortBy({shop::Name, true});
    EXPECT_TRUE(grid_.Marks().Contains(grid_.Rows().Identity(3)));

    grid_.Array().Show();

    EXPECT_EQ(grid_.Marks().Count(), 0U);
    EXPECT_EQ(changes, 2);
}

TEST_F(GridComponentTest, AFigureBelowZeroWarnsUnlessItIsJudgedOtherwise)
{
    EXPECT_TRUE(grid_.Warns(1, shop::Price, "-2.00"));
    EXPECT_FALSE(grid_.Warns(1, shop::Price, "2.00"));
    EXPECT_FALSE(grid_.Warns(1, shop::Name, "-2.00"));

    grid_.JudgeFigures([](std::size_t row, std::int32_t) { return row == 2; });

    EXPECT_FALSE(grid_.Warns(1, shop::Price, "-2.00"));
    EXPECT_TRUE(grid_.Warns(2, shop::Price, "2.00"));
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
