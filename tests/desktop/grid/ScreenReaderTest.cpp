// What is announced to a screen reader, through the toolkit's own interface.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLineEdit>

#include "desktop/grid/CellEditor.h"
#include "tests/desktop/ScreenReaderSwitch.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// What was announced while a test ran: the kind of event and the name of the object.
std::vector<std::pair<QAccessible::Event, std::string>>& Announced()
{
    static std::vector<std::pair<QAccessible::Event, std::string>> announced;
    return announced;
}

void Take(QAccessibleEvent* event)
{
    if (QAccessibleInterface* about = event->accessibleInterface())
        Announced().emplace_back(event->type(), ToUtf8(about->text(QAccessible::Name)));
}

class ScreenReaderTest : public WindowTest {
protected:
    ScreenReaderTest()
    {
        ScreenReaderListens(true);
        before_ = QAccessible::installUpdateHandler(Take);
        ClickNode("Checking");
        Announced().clear();
    }
    ~ScreenReaderTest() override
    {
        QAccessible::installUpdateHandler(before_);
        ScreenReaderListens(false);
    }

    static QAccessibleInterface* Of(QObject& widget)
    {
        return QAccessible::queryAccessibleInterface(&widget);
    }
    static std::string Name(QAccessibleInterface* about)
    {
        return about ? ToUtf8(about->text(QAccessible::Name)) : "(nothing)";
    }
    QAccessibleInterface* Table() { return Of(GridWidget(window_)); }
    QAccessibleInterface* Cell(int row, int column)
    {
        return Table()->tableInterface()->cellAt(row - 1, column - 1);
    }
    using Event = std::pair<QAccessible::Event, std::string>;

private:
    QAccessible::UpdateHandler before_ = nullptr;
};

TEST_F(ScreenReaderTest, TheGridIsATableNamedAfterWhatItShows)
{
    EXPECT_EQ(Table()->role(), QAccessible::Table);
    EXPECT_EQ(Name(Table()), "Checking");
    EXPECT_EQ(Table()->tableInterface()->rowCount(), 5);
    EXPECT_EQ(Table()->tableInterface()->columnCount(), 6);

    ClickNode("Budget");
    EXPECT_EQ(Name(Table()), "Budget");
}

TEST_F(ScreenReaderTest, ACellHasItsTextItsHeadersAndItsPlaceOnTheScreen)
{
    QAccessibleInterface* cell = Cell(2, 3);
    ASSERT_TRUE(cell);
    ASSERT_TRUE(cell->isValid());

    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(Name(cell), "-4.50");
    EXPECT_EQ(cell->text(QAccessible::Value), "-4.50");
    QAccessibleTableCellInterface* place = cell->tableCellInterface();
    EXPECT_EQ(place->rowIndex(), 1);
    EXPECT_EQ(place->columnIndex(), 2);
    ASSERT_EQ(place->columnHeaderCells().size(), 1);
    EXPECT_EQ(Name(place->columnHeaderCells().first()), "Amount");
    EXPECT_EQ(place->columnHeaderCells().first()->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(Name(place->rowHeaderCells().first()), "Row 2");
    EXPECT_EQ(place->rowHeaderCells().first()->role(), QAccessible::RowHeader);
    EXPECT_EQ(place->table(), Table());
    QWidget& area = *GridWidget(window_).viewport();
    EXPECT_EQ(cell->rect(),
              GridWidget(window_).Layout().CellRect(2, 3).translated(area.mapToGlobal(QPoint())));
    EXPECT_EQ(Table()->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
}

TEST_F(ScreenReaderTest, EveryChildOfTheTableKnowsItsParentAndNumber)
{
    const int count = Table()->childCount();
    ASSERT_EQ(count, (5 + 1) * (6 + 1) + 1);
    for (int index = 0; index < count; ++index) {
        QAccessibleInterface* child = Table()->child(index);
        ASSERT_TRUE(child) << index;
        EXPECT_EQ(child->parent(), Table()) << index;
        EXPECT_EQ(Table()->indexOfChild(child), index);
    }
    EXPECT_FALSE(Table()->child(count));
    EXPECT_FALSE(Table()->child(-1));
}

TEST_F(ScreenReaderTest, TheRowHeadersSayWhatTheirRowsAre)
{
    const auto line = [this](int row) {
        return ToUtf8(Table()->tableInterface()->rowDescription(row - 1));
    };
    EXPECT_EQ(line(1), "Row 1");
    EXPECT_EQ(line(5), "New row");

    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('Rent', 500, 2006, 3, 'Home')");
    ClickNode("Budget");

    EXPECT_EQ(line(1), "Group");
    EXPECT_EQ(Name(Cell(1, 1)), "Home (1 items)");
    EXPECT_TRUE(Cell(1, 1)->state().expanded);
    Grid().Fold(1, true);
    EXPECT_TRUE(Cell(1, 1)->state().collapsed);
}

TEST_F(ScreenReaderTest, TheCurrentCellIsTheOneWithTheFocusAndItsMoveIsReported)
{
    ClickCell(2, 3);
    Announced().clear();

    Key(GridWidget(window_), Qt::Key_Down);

    EXPECT_TRUE(Cell(3, 3)->state().focused);
    EXPECT_TRUE(Cell(3, 3)->state().selected);
    EXPECT_FALSE(Cell(2, 3)->state().focused);
    EXPECT_EQ(Table()->focusChild(), Cell(3, 3));
    EXPECT_THAT(Announced(), Contains(Event(QAccessible::Focus, "-4.50")));
}

TEST_F(ScreenReaderTest, WhichCellsCanBeEditedIsReported)
{
    EXPECT_TRUE(Cell(1, 3)->state().editable);
    EXPECT_FALSE(Cell(1, 3)->state().readOnly);

    ClickNode("Net Worth");

    EXPECT_TRUE(Cell(1, 5)->state().readOnly);
    EXPECT_FALSE(Cell(1, 5)->state().editable);
    EXPECT_TRUE(Cell(1, 4)->state().editable);
}

TEST_F(ScreenReaderTest, WhatWasTypedIsReportedAsTheCellsNewValue)
{
    ClickCell(2, 3);
    QTest::keyClicks(&GridWidget(window_), "7");
    EXPECT_EQ(Name(Table()->focusChild()), "Amount");
    EXPECT_EQ(Table()->focusChild()->text(QAccessible::Value), "7");

    Key(GridWidget(window_).Editor().Line(), Qt::Key_Tab);

    EXPECT_THAT(Announced(), Contains(Event(QAccessible::ValueChanged, "7.00")));
    EXPECT_EQ(Name(Cell(2, 3)), "7.00");
    EXPECT_EQ(ToUtf8(Table()->tableInterface()->rowDescription(1)), "Row 2, changed");
}

TEST_F(ScreenReaderTest, ReplacedRowsAreReportedAndOldCellsAreGone)
{
    QAccessibleInterface* old = Cell(4, 3);
    const QAccessible::Id id = QAccessible::uniqueId(old);
    Announced().clear();

    ClickNode("Purse");

    EXPECT_THAT(Announced(), Contains(Event(QAccessible::TableModelChanged, "Purse")));
    EXPECT_FALSE(QAccessible::accessibleInterface(id));
    EXPECT_EQ(Table()->tableInterface()->rowCount(), 1);
    EXPECT_FALSE(Cell(2, 1));
}

TEST_F(ScreenReaderTest, AScreenReaderMovesToACellAndOpensIt)
{
    Cell(3, 2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Grid().Row(), 3U);
    EXPECT_EQ(Grid().Col(), 2);
    EXPECT_TRUE(GridWidget(window_).hasFocus());

    Cell(3, 2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(Grid().Editing());
}

TEST_F(ScreenReaderTest, TheCurrentCellsTipIsItsDescription)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('(none)', 500, 2006, 3, 'Home')");
    ClickNode("Budget");
    ClickCell(2, 1);

    EXPECT_TRUE(Cell(2, 1)->text(QAccessible::Description).startsWith("Number of transactions: 4"));
}

TEST_F(ScreenReaderTest, AnEmptyGridsHintIsItsDescriptionAndItsLinksAreButtons)
{
    ClickNode("Purse");

    EXPECT_TRUE(
        Table()->text(QAccessible::Description).startsWith("No transactions in March 2006. "));
    std::vector<std::string> names;
    for (QWidget* link : GridWidget(window_).Empty().findChildren<QWidget*>())
        if (link->isVisible() && Of(*link)->role() == QAccessible::Button)
            names.push_back(Name(Of(*link)));
    EXPECT_THAT(names, ElementsAre("New transaction", "Import a statement"));
}

TEST_F(ScreenReaderTest, EveryOtherPartOfTheWindowHasANameAndAValue)
{
    EXPECT_EQ(Of(TreeWidget(window_))->role(), QAccessible::Tree);
    EXPECT_EQ(Name(Of(TreeWidget(window_))), "Views and accounts");
    const auto labels = Of(MonthWidget(window_))->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(Name(labels.first().first), "Month:");
    EXPECT_EQ(Of(MonthWidget(window_))->text(QAccessible::Value), "March");
    EXPECT_EQ(Name(Of(YearWidget(window_))), "Year:");
    EXPECT_EQ(Of(YearWidget(window_))->role(), QAccessible::SpinBox);
    EXPECT_EQ(Of(YearWidget(window_))->valueInterface()->currentValue().toInt(), 2006);
    EXPECT_EQ(Name(Of(*FirstTotal(window_))), "Balance: Amount");
    EXPECT_EQ(Of(*FirstTotal(window_))->text(QAccessible::Value), "-18.00");
    EXPECT_TRUE(Of(*FirstTotal(window_))->state().readOnly);
    EXPECT_EQ(Name(Of(*ToolbarWidget(window_).ButtonOf("Forward"))), "Forward");

    ClickNode("Net Worth");
    EXPECT_EQ(Name(Of(*SecondTotal(window_))), "Total Net Worth: Current Balance");
}

TEST_F(ScreenReaderTest, TheTreesNodesHaveTheirTextsAndTheSelectedOneIsReported)
{
    Key(TreeWidget(window_), Qt::Key_Home);
    Announced().clear();

    Key(TreeWidget(window_), Qt::Key_Down);

    EXPECT_THAT(Announced(), Contains(Event(QAccessible::Focus, "Budget")));
    QAccessibleInterface* tree = Of(TreeWidget(window_));
    std::vector<std::string> names;
    for (int index = 0; index < tree->childCount(); ++index)
        if (tree->child(index)->role() == QAccessible::TreeItem)
            names.push_back(Name(tree->child(index)));
    EXPECT_THAT(names, ElementsAre("Net Worth", "Budget", "Bank", "Checking", "Cash", "Purse",
                                   "Loan", "Car"));
}

TEST_F(ScreenReaderTest, AChangedYearIsReported)
{
    MenuAction("Back")->trigger();
    Announced().clear();
    for (int month = 0; month < 2; ++month)
        MenuAction("Back")->trigger();

    EXPECT_EQ(Of(YearWidget(window_))->valueInterface()->currentValue().toInt(), 2005);
    EXPECT_THAT(Announced(), Contains(Event(QAccessible::ValueChanged, "Year:")));
}

}  // namespace
}  // namespace clb
