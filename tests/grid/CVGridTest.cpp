// What the program's grid adds to the component: defaults before a row is saved, Refetch, and the
// column that stays while a row is being saved.

#include "grid/CVGrid.h"
#include "tests/support/FakePorts.h"
#include "tests/support/GridFixture.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class CVGridTest : public testing::Test {
protected:
    CVGridTest() : grid_(dates_, printing_, folder_.Path()) { FillShop(grid_.DBArray()); }
    const Value& Stored(std::size_t record, std::int32_t column)
    {
        return grid_.DBArray().At(record, static_cast<std::size_t>(column - 1));
    }

    IsoDateForm dates_;
    FakePrintJob printing_;
    TempFolder folder_;
    CVGrid grid_;
};

TEST_F(CVGridTest, UntouchedAmountsAndTextsOfANewRowAreStoredAsZeroAndEmpty)
{
    grid_.MoveToRowKey(Null{});
    grid_.ColumnValue(shop::Open, true);

    EXPECT_TRUE(grid_.Update());

    EXPECT_EQ(Stored(3, shop::Name), Value(std::string()));
    EXPECT_EQ(Stored(3, shop::Price), Value(Money()));
    EXPECT_EQ(Stored(3, shop::Count), Value(0));
    EXPECT_EQ(Stored(3, shop::Open), Value(true));
}

TEST_F(CVGridTest, UntouchedDatesYesNoAndFloatingNumbersStayEmpty)
{
    grid_.MoveToRowKey(Null{});
    grid_.ColumnValue(shop::Name, std::string("Dates"));

    EXPECT_TRUE(grid_.Update());

    EXPECT_TRUE(IsNull(Stored(3, shop::Day)));
    EXPECT_TRUE(IsNull(Stored(3, shop::Open)));
    EXPECT_TRUE(IsNull(Stored(3, shop::Weight)));
}

TEST_F(CVGridTest, TheKeyIsLeftForTheStoreToNumber)
{
    grid_.MoveToRowKey(Null{});
    grid_.ColumnValue(shop::Name, std::string("Dates"));

    EXPECT_TRUE(grid_.Update());

    EXPECT_TRUE(IsNull(Stored(3, shop::Key)));
}

TEST_F(CVGridTest, ACancelledSaveWritesNoDefaultsAndStaysInEdit)
{
    grid_.BeforeUpdate().connect([](bool& cancel) { cancel = true; });
    grid_.MoveToRowKey(Null{});
    grid_.Col(shop::Name);
    grid_.ColumnValue(shop::Name, std::string("Dates"));

    EXPECT_FALSE(grid_.Update());

    EXPECT_TRUE(grid_.Editing());
    EXPECT_TRUE(IsNull(grid_.ColumnValue(shop::Price)));
    EXPECT_EQ(grid_.DBArray().Count(), 3U);
}

TEST_F(CVGridTest, TheContainersAnswerIsAskedBeforeTheDefaultsAreFilledIn)
{
    bool empty = false;
    grid_.BeforeUpdate().connect([&](bool&) { empty = IsNull(grid_.ColumnValue(shop::Price)); });
    grid_.MoveToRowKey(Null{});
    grid_.ColumnValue(shop::Name, std::string("Dates"));

    grid_.Update();

    EXPECT_TRUE(empty);
}

TEST_F(CVGridTest, TheColumnCannotBeMovedWhileARowIsBeingSaved)
{
    grid_.BeforeUpdate().connect([this](bool&) { grid_.Col(shop::Weight); });
    grid_.Col(shop::Price);
    grid_.ColumnValue(shop::Price, Money::FromUnits(1));

    grid_.Update();
    EXPECT_EQ(grid_.Col(), shop::Price);

    grid_.Col(shop::Weight);
    EXPECT_EQ(grid_.Col(), shop::Weight);
}

TEST_F(CVGridTest, TheColumnMovesAgainAfterASaveThatFailed)
{
    grid_.BeforeUpdate().connect([](bool&) { throw TypeMismatch(); });
    grid_.ColumnValue(shop::Price, Money::FromUnits(1));
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.Update(); }), errors::TypeMismatch);

    grid_.Col(shop::Weight);

    EXPECT_EQ(grid_.Col(), shop::Weight);
}

TEST_F(CVGridTest, AFetchedNullBecomesTheEmptyText)
{
    GridColumn column;
    column.dataType = FieldType::Text;
    const std::int32_t added = grid_.Columns().Add(column);
    grid_.FetchColumnData().connect(
        [](std::int32_t, std::int32_t, const Value&, Value& value) { value = Null{}; });

    EXPECT_EQ(grid_.ColumnValue(added), Value(std::string()));
}

TEST_F(CVGridTest, TipsFollowTheirSwitch)
{
    grid_.FetchCellTip().connect(
        [](std::int32_t, std::int32_t, std::int32_t, std::string& text) { text = "tip"; });

    grid_.ShowToolTips(true);
    EXPECT_EQ(grid_.CellTips(), 2);
    EXPECT_EQ(grid_.CellTip(1, 1), "tip");

    grid_.ShowToolTips(false);
    EXPECT_EQ(grid_.CellTips(), 0);
    EXPECT_EQ(grid_.CellTip(1, 1), std::nullopt);
}

TEST_F(CVGridTest, RefetchShowsTheNewRowsAndReturnsToItsCellUnderASwitchedOffPainting)
{
    std::vector<std::string> steps;
    grid_.RedrawChanged().connect([&](bool on) { steps.push_back(on ? "paint" : "hold"); });
    grid_.AfterEdit().connect([&](std::int32_t, std::int32_t) { steps.push_back("edit ended"); });
    grid_.OnRefetch([&] { steps.push_back("enable on row " + std::to_string(grid_.Row())); });
    grid_.RowColChange().connect([&](std::int32_t row, std::int32_t column) {
        steps.push_back("cell " + std::to_string(row) + " " + std::to_string(column));
    });
    grid_.MoveTo(3, shop::Price);
    grid_.Editing(true);
    grid_.DBArray().Add({14, std::string("Dates")});
    steps.clear();

    grid_.Refetch();

    EXPECT_EQ(steps, (std::vector<std::string>{"hold", "edit ended", "enable on row 1", "cell 3 3",
                                               "paint"}));
    EXPECT_EQ(grid_.Rows().Count(), 5U);
    EXPECT_FALSE(grid_.Editing());
}

TEST_F(CVGridTest, AnUnknownKeyIsAnErrorOfTheCaller)
{
    EXPECT_EQ(RuntimeErrorOf([this] { grid_.MoveToRowKey(99); }), errors::ElementNotFound);
}

TEST_F(CVGridTest, TheTipWaitsHalfASecond)
{
    EXPECT_EQ(grid_.TipDelay(), 500);
}

}  // namespace
}  // namespace clb
