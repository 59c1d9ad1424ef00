// What is announced to a screen reader, through the toolkit's own interface.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLineEdit>

#include "app/NewRows.h"
#include "desktop/grid/CellEditor.h"
#include "tests/desktop/ScreenReaderSwitch.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// What was announced while a test ran: the kind of event and the name of the object.
std::vector<std::pair<QAccessible::Event, std::string>>& Announced()
{
    static std::vector<std::pair<QAccessible::Event, std::string>> announced;
    return announced;
}

/// The texts of the notifications that were shown.
std::vector<std::string>& Notified()
{
    static std::vector<std::string> notified;
    return notified;
}

void Take(QAccessibleEvent* event)
{
    QAccessibleInterface* about = event->accessibleInterface();
    if (!about)
        return;
    Announced().emplace_back(event->type(), ToUtf8(about->text(QAccessible::Name)));
    if (event->type() == QAccessible::ObjectShow && about->role() == QAccessible::Notification)
        Notified().push_back(ToUtf8(about->text(QAccessible::Name)));
}

class ScreenReaderTest : public WindowTest {
protected:
    ScreenReaderTest()
    {
        ScreenReaderListens(true);
        before_ = QAccessible::installUpdateHandler(Take);
        ClickNode("Checking");
        Announced().clear();
        Notified().clear();
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
    std::string Line(int row) { return ToUtf8(Table()->tableInterface()->rowDescription(row - 1)); }
    /// The texts that were read at once, whatever had the focus.
    static const std::vector<std::string>& Heard() { return Notified(); }
    static std::string Description(QAccessibleInterface* about)
    {
        return ToUtf8(about->text(QAccessible::Description));
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        Key(GridWidget(window_), key, held);
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
    EXPECT_THAT(names,
                ElementsAre("Net Worth, 0.00", "Budget", "Bank, 0.00", "Checking, Bank, 0.00",
                            "Cash, 0.00", "Purse, Cash, 0.00", "Loan, 0.00", "Car, Loan, 0.00"));
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

TEST_F(ScreenReaderTest, MarkedRowsAreSelectedAndTheirSumIsRead)
{
    ClickCell(1, 3);
    Announced().clear();

    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);

    EXPECT_THAT(Heard(), ElementsAre("2 rows, -9.00", "3 rows, -13.50"));
    EXPECT_THAT(Announced(), Contains(Event(QAccessible::SelectionWithin, "Checking")));
    EXPECT_TRUE(Cell(2, 1)->state().selected);
    EXPECT_FALSE(Cell(4, 1)->state().selected);
    EXPECT_EQ(Line(2), "Row 2, marked");
    EXPECT_EQ(Table()->tableInterface()->selectedRows(), (QList<int>{0, 1, 2}));
    EXPECT_TRUE(Table()->tableInterface()->isRowSelected(1));
    EXPECT_EQ(Table()->tableInterface()->selectedCellCount(), 18);

    Press(Qt::Key_Escape);
    EXPECT_FALSE(Cell(2, 1)->state().selected);
    EXPECT_EQ(Line(2), "Row 2");
    EXPECT_EQ(Table()->tableInterface()->selectedRows(), (QList<int>{2}));
}

TEST_F(ScreenReaderTest, AnImportedRowIsNewUntilTheUserLeavesIt)
{
    ClickCell(1, 3);
    NewRows imported;
    imported.AddAfter(Model().Data(), 0);
    Model().Unseen().Add(imported, 0);
    EXPECT_EQ(Line(3), "Row 3, new");
    EXPECT_TRUE(Name(Cell(3, 1)).ends_with(", new")) << Name(Cell(3, 1));
    EXPECT_EQ(Name(Cell(3, 3)), "-4.50");

    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(Line(2), "Row 2, new");

    Press(Qt::Key_Down);
    EXPECT_EQ(Line(2), "Row 2");
    EXPECT_EQ(Line(3), "Row 3, new");
}

TEST_F(ScreenReaderTest, ANewRowThatWasTypedIntoSaysSo)
{
    EXPECT_EQ(Name(Cell(5, 1)), "New row");
    ClickCell(5, 2);
    QTest::keyClicks(&GridWidget(window_), "Baker");
    Key(GridWidget(window_).Editor().Line(), Qt::Key_Tab);

    EXPECT_EQ(Line(5), "New row, changed");
    EXPECT_TRUE(Name(Cell(5, 1)).ends_with(", changed")) << Name(Cell(5, 1));
}

TEST_F(ScreenReaderTest, AResultIsReadAndItsButtonsAreReached)
{
    ClickCell(2, 6);
    QTest::keyClicks(&GridWidget(window_), "first");
    Key(GridWidget(window_).Editor().Line(), Qt::Key_Return);
    const std::string before = Name(Cell(2, 6));
    Notified().clear();

    Press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_FALSE(Heard().empty());
    EXPECT_EQ(Heard().back(), Model().result.Text() + " F6 goes to: Redo");

    GridWidget(window_).setFocus();
    Press(Qt::Key_F6);
    EXPECT_EQ(Of(*window_.focusWidget())->role(), QAccessible::Button);
    EXPECT_EQ(Name(Of(*window_.focusWidget())), "Redo");
    Key(*window_.focusWidget(), Qt::Key_F6);
    EXPECT_TRUE(MonthWidget(window_).hasFocus());
    Key(MonthWidget(window_), Qt::Key_F6, Qt::ShiftModifier);
    Key(*window_.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Name(Cell(2, 6)), before);
}

TEST_F(ScreenReaderTest, WhatAnEmptyGridSaysIsReadWhenItHasTheFocus)
{
    ClickNode("Purse");
    Notified().clear();

    Key(TreeWidget(window_), Qt::Key_F6);

    ASSERT_EQ(Heard().size(), 1U);
    EXPECT_EQ(Heard().front().rfind("No transactions in March 2006. ", 0), 0U);
    EXPECT_TRUE(Heard().front().ends_with(" Links: New transaction, Import a statement."));
    EXPECT_EQ(Description(Table()->focusChild()), Heard().front());

    MenuAction("Back")->trigger();
    QTest::qWait(1);
    ASSERT_EQ(Heard().size(), 2U);
    EXPECT_EQ(Heard().back().rfind("No transactions in February 2006. ", 0), 0U);
}

TEST_F(ScreenReaderTest, WhatATypedTextWillBeAndWhyItIsRefusedIsTheLinesDescription)
{
    ClickCell(2, 3);
    QTest::keyClicks(&GridWidget(window_), "7+1");
    QLineEdit& line = GridWidget(window_).Editor().Line();
    EXPECT_EQ(Description(Of(line)), ToUtf8(GridWidget(window_).Editor().Hint().text()));
    EXPECT_NE(Description(Of(line)).find("8.00"), std::string::npos);
    EXPECT_THAT(Announced(), Contains(Event(QAccessible::DescriptionChanged, "Amount")));

    QTest::keyClicks(&line, "much");
    Key(line, Qt::Key_Tab);
    EXPECT_FALSE(Grid().Refusal().empty());
    EXPECT_EQ(Description(Of(line)), Grid().Refusal());
}

TEST_F(ScreenReaderTest, TheBalanceAfterARowDescribesItsAmount)
{
    // The newest row comes first.
    EXPECT_EQ(Description(Cell(2, 3)), "Balance after this row: -13.50");
    EXPECT_EQ(Description(Cell(2, 4)), "");

    ClickCell(2, 3);
    Press(Qt::Key_F1, Qt::ControlModifier);
    EXPECT_THAT(Heard(), ElementsAre("Balance after this row: -13.50"));
}

TEST_F(ScreenReaderTest, TheOrderOfTheRowsIsReadAndDescribesTheHeading)
{
    ClickCell(2, 2);
    QAccessibleInterface* heading = Cell(2, 2)->tableCellInterface()->columnHeaderCells().first();
    EXPECT_EQ(Description(heading), "");

    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    heading = Cell(2, 2)->tableCellInterface()->columnHeaderCells().first();
    EXPECT_EQ(Description(heading), "sorted, ascending");
    heading->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Grid().Rows().Sort().descending, true);
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);

    EXPECT_THAT(Heard(), ElementsAre("Description: sorted, ascending",
                                     "Description: sorted, descending", "Usual order"));
}

TEST_F(ScreenReaderTest, WhatIsOverspentSaysSo)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('(none)', -10, 2006, 3, 'Home')");
    ClickNode("Budget");

    EXPECT_EQ(Name(Cell(2, 2)), "-10.00");
    EXPECT_EQ(Name(Cell(2, 3)), "-18.00, overspent");
    EXPECT_EQ(Cell(2, 3)->text(QAccessible::Value), "-18.00");
    EXPECT_EQ(Name(Cell(2, 4)), "-8.00, overspent");
}

TEST_F(ScreenReaderTest, ATotalThatChangesIsReadButNotThatOfAnotherAccount)
{
    ClickCell(2, 3);
    QTest::keyClicks(&GridWidget(window_), "-7");
    Key(GridWidget(window_).Editor().Line(), Qt::Key_Return);
    EXPECT_THAT(Heard(), ElementsAre("Balance: Amount -20.50"));

    Notified().clear();
    ClickNode("Purse");
    ClickNode("Checking");
    EXPECT_THAT(Heard(), Not(Contains(HasSubstr("Balance"))));
}

TEST_F(ScreenReaderTest, TheCurrentCellIsReportedLastWhenTheGridGetsTheFocus)
{
    ClickCell(2, 3);
    Press(Qt::Key_F6, Qt::ShiftModifier);
    ASSERT_TRUE(TreeWidget(window_).hasFocus());
    Announced().clear();

    Key(TreeWidget(window_), Qt::Key_F6);

    std::string last;
    for (const auto& [event, name] : Announced())
        if (event == QAccessible::Focus)
            last = name;
    EXPECT_EQ(last, "-4.50");
}

}  // namespace
}  // namespace clb
