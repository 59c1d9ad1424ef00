// Editing in the window, with real keys and clicks.

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>

#include "desktop/grid/CellEditor.h"
#include "desktop/grid/GridHeader.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

// Columns of a bank account's register.
constexpr std::int32_t kDate = 1, kDescription = 2, kAmount = 3, kCategory = 5, kNotes = 6;

class GridEditingTest : public WindowTest {
protected:
    GridEditingTest()
    {
        books_.Execute(
            "INSERT INTO Budget (Category, Amount, [Year], Period) VALUES ('Groceries', 5, 2006, "
            "3)");
        books_.Execute(
            "INSERT INTO Budget (Category, Amount, [Year], Period) VALUES ('Fuel', 5, 2006, 3)");
        ClickNode("Checking");
    }

    CellEditor& Editor() { return GridWidget(window_).Editor(); }
    /// Keys go to whatever has the focus, as from a keyboard.
    QWidget& Focused()
    {
        QWidget* focused = QApplication::focusWidget();
        return focused ? *focused : window_;
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        Key(Focused(), key, held);
    }
    void Type(const char* text)
    {
        for (const char* at = text; *at != 0; ++at)
            QTest::keyClick(&Focused(), *at);
        QTest::qWait(1);
    }
    void DoubleClickCell(std::size_t row, std::int32_t column)
    {
        ClickCell(row, column);
        QTest::mouseDClick(GridWidget(window_).viewport(), Qt::LeftButton, Qt::NoModifier,
                           GridWidget(window_).Layout().CellRect(row, column).center());
        QTest::qWait(1);
    }
    std::string Text(std::size_t row, std::int32_t column) { return Grid().CellText(row, column); }
    std::string Typed() { return ToUtf8(Editor().Line().text()); }
    using Cell = std::pair<std::size_t, std::int32_t>;
    Cell Current() { return {Grid().Row(), Grid().Col()}; }
};

TEST_F(GridEditingTest, ADoubleClickEditsTheCellWithItsTextSelected)
{
    DoubleClickCell(2, kDescription);

    EXPECT_TRUE(Grid().Editing());
    EXPECT_TRUE(Editor().Line().hasFocus());
    EXPECT_EQ(Typed(), Text(2, kDescription));
    EXPECT_EQ(Editor().Line().selectedText(), Editor().Line().text());
    EXPECT_TRUE(Editor().geometry().contains(
        GridWidget(window_).Layout().CellRect(2, kDescription).center()));
}

TEST_F(GridEditingTest, F2EditsWithTheCaretAfterTheText)
{
    ClickCell(1, kDescription);
    const std::string before = Text(1, kDescription);

    Press(Qt::Key_F2);
    Type("s");
    Press(Qt::Key_Return);

    EXPECT_EQ(Text(1, kDescription), before + "s");
}

TEST_F(GridEditingTest, TypingReplacesTheCellBeginningWithThatCharacter)
{
    std::vector<std::int16_t> keys;
    Grid().BeforeEdit().connect(
        [&](std::int32_t, std::int32_t, std::int16_t key, bool&) { keys.push_back(key); });
    ClickCell(1, kDescription);

    Type("Mill");

    EXPECT_EQ(keys, std::vector<std::int16_t>{'M'});
    EXPECT_EQ(Typed(), "Mill");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kDescription), "Mill");
    EXPECT_EQ(Current(), Cell(1, kAmount));
    EXPECT_TRUE(Grid().Dirty());
}

TEST_F(GridEditingTest, BackspaceBeginsWithAnEmptyCell)
{
    ClickCell(1, kDescription);

    Press(Qt::Key_Backspace);

    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Typed(), "");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kDescription), "");
}

TEST_F(GridEditingTest, EnterSavesTheRowAndGoesToTheNext)
{
    ClickCell(1, kDescription);
    Type("Mill");

    Press(Qt::Key_Return);

    EXPECT_EQ(Current(), Cell(2, kDescription));
    EXPECT_FALSE(Grid().Dirty());
    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'Mill'"), "1");
}

TEST_F(GridEditingTest, EnterOnANewRowBeginsAnother)
{
    ClickCell(5, kDate);
    Type("2006-03-09");
    Press(Qt::Key_Tab);
    Type("Mill");
    Press(Qt::Key_Tab);
    Type("-12.5");

    Press(Qt::Key_Return);

    EXPECT_EQ(
        books_.Rows("SELECT PostDate, Description, Amount FROM Trans WHERE Description = 'Mill'"),
        std::vector<std::string>{"2006-03-09|Mill|-12.5"});
    EXPECT_EQ(Grid().Rows().Count(), 6U);
    EXPECT_EQ(Current(), Cell(6, kDate));
}

TEST_F(GridEditingTest, TabOnTheLastCellOfANewRowKeepsItAndBeginsAnother)
{
    ClickCell(5, kDate);
    Type("2006-03-09");
    Press(Qt::Key_Tab);
    Type("Mill");
    Press(Qt::Key_End);
    Press(Qt::Key_Tab);
    ClickCell(5, kNotes);

    Press(Qt::Key_Tab);

    EXPECT_EQ(Grid().Rows().Count(), 6U);
    EXPECT_EQ(Current(), Cell(6, kDate));
    EXPECT_EQ(Model().window.Focus(), &Grid());
}

TEST_F(GridEditingTest, ShiftTabEndsTheEditAndGoesBack)
{
    ClickCell(2, kAmount);
    Type("7");

    Press(Qt::Key_Backtab, Qt::ShiftModifier);

    EXPECT_EQ(Current(), Cell(2, kDescription));
    EXPECT_EQ(Text(2, kAmount), "7.00");
}

TEST_F(GridEditingTest, UpAndDownEndTheEditAndSaveTheRow)
{
    ClickCell(2, kDescription);
    Type("Mill");

    Press(Qt::Key_Down);

    EXPECT_EQ(Current(), Cell(3, kDescription));
    EXPECT_EQ(Text(2, kDescription), "Mill");
    EXPECT_FALSE(Grid().Dirty());

    Type("Dairy");
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Current(), Cell(1, kDescription));
    EXPECT_EQ(Text(3, kDescription), "Dairy");
}

TEST_F(GridEditingTest, HomeAndEndStayInTheTextWhileEditing)
{
    ClickCell(2, kDescription);
    Type("ill");

    Press(Qt::Key_Home);
    Type("M");
    Press(Qt::Key_End);
    Type("s");

    EXPECT_EQ(Typed(), "Mills");
    EXPECT_EQ(Current(), Cell(2, kDescription));
}

TEST_F(GridEditingTest, EscapeDiscardsTheCellAndAgainTheRow)
{
    const std::string before = Text(1, kDescription);
    ClickCell(1, kAmount);
    Type("7");
    Press(Qt::Key_Tab);
    ClickCell(1, kDescription);
    Type("Mill");

    Press(Qt::Key_Escape);
    EXPECT_FALSE(Grid().Editing());
    EXPECT_EQ(Text(1, kDescription), before);
    EXPECT_EQ(Text(1, kAmount), "7.00");
    EXPECT_TRUE(GridWidget(window_).hasFocus());

    Press(Qt::Key_Escape);
    EXPECT_EQ(Text(1, kAmount), "-4.50");
    EXPECT_FALSE(Grid().Dirty());
}

TEST_F(GridEditingTest, TextThatIsNotANumberIsRefusedInItsCellWithAReason)
{
    ClickCell(1, kAmount);
    Type("cheap");

    Press(Qt::Key_Return);

    EXPECT_TRUE(Editor().Line().hasFocus());
    EXPECT_EQ(Typed(), "cheap");
    EXPECT_TRUE(Editor().Hint().isVisible());
    EXPECT_EQ(Editor().Hint().text(), "Please enter a number, for example 1,234.50.");
    EXPECT_TRUE(books_.messages.boxes.empty());

    ClickCell(3, kDescription);
    EXPECT_EQ(Current(), Cell(1, kAmount)) << "a click elsewhere does not lose the text";
    EXPECT_EQ(Typed(), "cheap");

    Editor().Line().selectAll();
    Type("8");
    EXPECT_FALSE(Editor().Hint().isVisible());
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(1, kAmount), "8.00");
}

TEST_F(GridEditingTest, ATextThatIsTooLongForItsColumnIsRefusedNotCut)
{
    const std::string fifty(50, 'x');
    ClickCell(1, kCategory);
    Type((fifty + "y").c_str());

    Press(Qt::Key_Tab);
    EXPECT_EQ(Editor().Hint().text(), "Please enter at most 50 characters.");
    EXPECT_EQ(Typed(), fifty + "y");

    Press(Qt::Key_Backspace);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kCategory), fifty);
}

TEST_F(GridEditingTest, ARefusedRowBringsTheUserToTheCellToCorrect)
{
    ClickNode("Net Worth");
    ClickCell(4, 1);
    Type("Savings");
    Press(Qt::Key_Tab);

    Press(Qt::Key_Down, Qt::ControlModifier);
    Press(Qt::Key_Up);

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text, "Please enter an account #.");
    EXPECT_EQ(Current(), Cell(4, 3));
    EXPECT_TRUE(Grid().Editing());
    EXPECT_TRUE(Grid().Marked());
    EXPECT_TRUE(Editor().Line().hasFocus());

    Type("S1");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    Type("b");
    Press(Qt::Key_Return);
    EXPECT_EQ(books_.One("SELECT Type FROM Account WHERE AccountID = 'S1'"), "Bank");
}

TEST_F(GridEditingTest, LeavingTheGridKeepsARefusedTextAndTheFocus)
{
    ClickCell(1, kAmount);
    Type("cheap");

    ClickNode("Car");

    EXPECT_EQ(Model().window.Focus(), &Grid());
    EXPECT_TRUE(Editor().Line().hasFocus());
    EXPECT_EQ(Model().View().View(), vwAccount);
}

TEST_F(GridEditingTest, LeavingTheGridSavesTheRow)
{
    ClickCell(1, kDescription);
    Type("Mill");

    ClickNode("Car");

    EXPECT_EQ(books_.One("SELECT COUNT(*) FROM Trans WHERE Description = 'Mill'"), "1");
    EXPECT_EQ(Model().View().View(), vwLoan);
    EXPECT_FALSE(Editor().IsOpen());
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
}

TEST_F(GridEditingTest, ACategoryCompletesAsItIsTyped)
{
    ClickCell(1, kCategory);

    Type("gr");
    EXPECT_EQ(Typed(), "Groceries");
    EXPECT_EQ(Editor().Line().selectedText(), "oceries");

    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kCategory), "Groceries");
}

TEST_F(GridEditingTest, DeletingTheCompletionKeepsWhatWasTyped)
{
    ClickCell(1, kCategory);
    Type("Gr");

    Press(Qt::Key_Backspace);

    EXPECT_EQ(Typed(), "Gr");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kCategory), "Gr");
}

TEST_F(GridEditingTest, ANewCategoryIsTakenAndOfferedFromThenOn)
{
    ClickCell(1, kCategory);
    Type("Zoo");
    Press(Qt::Key_Return);

    EXPECT_EQ(Grid().Columns().Item(kCategory).valueItems.back().text, "Zoo");

    Type("z");
    EXPECT_EQ(Typed(), "Zoo");
}

TEST_F(GridEditingTest, TheListDropsDownAndAClickPicks)
{
    DoubleClickCell(1, kCategory);

    Press(Qt::Key_F4);
    ASSERT_TRUE(Editor().Popup());
    QListWidget* list = Editor().Popup()->ListWidget();
    ASSERT_EQ(list->count(), 2);
    ClickAt(*list->viewport(), list->visualItemRect(list->item(1)));

    EXPECT_EQ(Typed(), ToUtf8(list == nullptr ? QString() : QStringLiteral("Fuel")));
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(1, kCategory), "Fuel");
}

TEST_F(GridEditingTest, TheListIsUsedByKeysAndEscapeClosesOnlyIt)
{
    ClickCell(1, kCategory);

    Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(Editor().Popup());
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Grid().Editing());

    Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(Editor().Popup());
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Typed(), "Fuel");
}

TEST_F(GridEditingTest, ADateIsPickedFromTheCalendar)
{
    ClickCell(1, kDate);
    Press(Qt::Key_F4);
    ASSERT_TRUE(Editor().Popup());
    QCalendarWidget* calendar = Editor().Popup()->CalendarWidget();
    EXPECT_EQ(ToUtf8(calendar->selectedDate().toString(Qt::ISODate)), Text(1, kDate));

    Press(Qt::Key_Right);
    Press(Qt::Key_Return);

    EXPECT_EQ(Typed(), "2006-03-05");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(1, kDate), "2006-03-05");
}

TEST_F(GridEditingTest, PlusAndMinusStepADateByADay)
{
    ClickCell(1, kDate);
    ASSERT_EQ(Text(1, kDate), "2006-03-04");
    Press(Qt::Key_F2);

    Type("+");
    EXPECT_EQ(Typed(), "2006-03-05");
    Type("--");
    EXPECT_EQ(Typed(), "2006-03-03");
}

TEST_F(GridEditingTest, ADateIsTypedWithItsOwnMinusSigns)
{
    ClickCell(1, kDate);

    Type("2006-03-21");
    Press(Qt::Key_Tab);

    EXPECT_EQ(Text(1, kDate), "2006-03-21");
}

TEST_F(GridEditingTest, AnyCharactersCanBeTypedAndComposed)
{
    ClickCell(1, kDescription);
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("Βäcker 账 🍎"));
    QApplication::sendEvent(&Focused(), &composed);

    Press(Qt::Key_Return);

    EXPECT_EQ(Text(1, kDescription), "Βäcker 账 🍎");
    EXPECT_EQ(books_.One("SELECT Description FROM Trans WHERE Sequence = 4"), "Βäcker 账 🍎");
}

TEST_F(GridEditingTest, CopyAndPasteWorkOnTheCell)
{
    ClickCell(1, kDescription);
    const std::string copied = Text(1, kDescription);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(ToUtf8(QApplication::clipboard()->text()), copied);

    ClickCell(3, kDescription);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Return);

    EXPECT_EQ(Text(3, kDescription), copied);
}

TEST_F(GridEditingTest, WhatTheProgramFillsInCannotBeEdited)
{
    ClickNode("Net Worth");

    DoubleClickCell(1, 5);
    EXPECT_FALSE(Grid().Editing());
    Type("5");
    EXPECT_FALSE(Grid().Editing());
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(GridEditingTest, TheEditorMovesWithItsCellWhenTheGridScrolls)
{
    for (int row = 0; row < 100; ++row)
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, PayeeName, Amount, [Year], Period, "
            "[Sequence]) VALUES ('C1', #2006-03-05#, 'Grocer', -1, 2006, 3, " +
            std::to_string(100 + row) + ")");
    ClickNode("Checking");
    DoubleClickCell(3, kDescription);
    const int before = Editor().y();

    GridWidget(window_).verticalScrollBar()->setValue(GridWidget(window_).Layout().RowHeight());

    EXPECT_EQ(Editor().y(), before - GridWidget(window_).Layout().RowHeight());
    EXPECT_TRUE(Grid().Editing());
}

class ColumnWidthTest : public GridEditingTest {
protected:
    GridHeader& Header() { return GridWidget(window_).Header(); }
    void DragLine(std::int32_t column, int by)
    {
        const QRect cell = GridWidget(window_).Layout().CellRect(1, column);
        const QPoint line(cell.right(), Header().height() / 2);
        QTest::mousePress(&Header(), Qt::LeftButton, Qt::NoModifier, line);
        for (int step = 1; step <= 4; ++step) {
            QMouseEvent move(QEvent::MouseMove, line + QPoint(by * step / 4, 0),
                             Header().mapToGlobal(line + QPoint(by * step / 4, 0)), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&Header(), &move);
        }
        QTest::mouseRelease(&Header(), Qt::LeftButton, Qt::NoModifier, line + QPoint(by, 0));
        QTest::qWait(1);
    }
    int Width(std::int32_t column) { return Grid().Columns().Item(column).width; }
};

TEST_F(ColumnWidthTest, DraggingAHeadersLineMakesTheColumnWider)
{
    const int before = Width(kCategory);
    const int notes = Width(kNotes);

    DragLine(kCategory, 40);

    EXPECT_EQ(Width(kCategory), before + 40);
    EXPECT_EQ(Width(kNotes), notes - 40) << "the last column takes what is left";
}

TEST_F(ColumnWidthTest, AWidthSetByHandAppliesToItsViewOnly)
{
    ClickNode("Net Worth");
    const int netWorth = Width(2);
    ClickNode("Checking");
    DragLine(kDescription, -60);
    const int byHand = Width(kDescription);

    ClickNode("Net Worth");
    EXPECT_EQ(Width(2), netWorth);
    window_.InnerSize(1000, 600);
    ClickNode("Checking");
    EXPECT_EQ(Width(kDescription), byHand);
}

TEST_F(ColumnWidthTest, ADoubleClickOnTheLineFitsTheColumn)
{
    DragLine(kDescription, -150);
    const QFontMetrics metrics(GridWidget(window_).font());
    const QRect cell = GridWidget(window_).Layout().CellRect(1, kDescription);

    QTest::mouseDClick(&Header(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right(), 5));

    EXPECT_GE(Width(kDescription), metrics.horizontalAdvance(ToQString(Text(1, kDescription))) + 2);
    EXPECT_LT(Width(kDescription), 200);
}

}  // namespace
}  // namespace clb
