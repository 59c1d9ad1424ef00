// Undo, Redo, the result bar and the history by mouse and keys.
#include <QAccessible>
#include <QApplication>
#include <QStatusBar>
#include <QToolButton>

#include "app/OtherPrograms.h"
#include "data/ViewColumns.h"
#include "desktop/grid/CellEditor.h"
#include "desktop/window/ResultBarView.h"
#include "tests/desktop/ScreenReaderSwitch.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

constexpr std::int32_t kNotes = 6;

/// What the bar announced last to screen readers.
std::string& Announced()
{
    static std::string text;
    return text;
}

void Listen(QAccessibleEvent* event)
{
    if (event->type() == QAccessible::Alert && event->accessibleInterface())
        Announced() = ToUtf8(event->accessibleInterface()->text(QAccessible::Name));
}

class HistoryKeysTest : public WindowTest {
protected:
    HistoryKeysTest()
    {
        QApplication::setActiveWindow(&window_);
        QTest::qWait(1);
        ClickNode("Checking");
        ClickCell(2, kNotes);
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* focused = QApplication::focusWidget();
        Key(focused ? *focused : window_, key, held);
    }
    static void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
    /// Saves the notes of the second row.
    void EditNotes(const char* text)
    {
        ClickCell(2, kNotes);
        Type(text);
        Press(Qt::Key_Return);
    }
    std::string Notes() { return Grid().CellText(2, kNotes); }
    ResultBarView& Bar() { return Find<ResultBarView>(window_, "ResultBar"); }
    std::string BarText() { return Model().result.Text(); }
};

TEST_F(HistoryKeysTest, TheKeysUndoAndRedo)
{
    EditNotes("first");
    EditNotes("second");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notes(), "first");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notes(), "Baker 03");

    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Notes(), "first");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Notes(), "second");
}

TEST_F(HistoryKeysTest, WhileACellIsInEditTheKeysBelongToItsText)
{
    EditNotes("first");
    ClickCell(2, kNotes);
    Press(Qt::Key_F2);
    Press(Qt::Key_End);
    Type("!");
    QLineEdit& line = GridWidget(window_).Editor().Line();
    ASSERT_EQ(line.text(), QStringLiteral("first!"));

    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line.text(), QStringLiteral("first"));
    EXPECT_TRUE(Grid().Editing());
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(line.text(), QStringLiteral("first!"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(line.text(), QStringLiteral("first!"));
    EXPECT_TRUE(Grid().Editing());
    Press(Qt::Key_Return);
    EXPECT_EQ(Notes(), "first!");
}

// Symptom: the boxes kept the keys and did nothing.
TEST_F(HistoryKeysTest, TheKeysUndoAndRedoInTheBoxesOfTheWindow)
{
    EditNotes("first");
    for (QWidget* box : {static_cast<QWidget*>(&YearWidget(window_)),
                         static_cast<QWidget*>(FirstTotal(window_))}) {
        box->setFocus(Qt::TabFocusReason);
        QTest::qWait(1);
        ASSERT_TRUE(box->hasFocus());
        Key(*box, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Notes(), "Baker 03") << ToUtf8(box->objectName());
        box->setFocus(Qt::TabFocusReason);
        Key(*box, Qt::Key_Y, Qt::ControlModifier);
        EXPECT_EQ(Notes(), "first") << ToUtf8(box->objectName());
        box->setFocus(Qt::TabFocusReason);
        Key(*box, Qt::Key_Z, Qt::ControlModifier);
        box->setFocus(Qt::TabFocusReason);
        Key(*box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Notes(), "first") << ToUtf8(box->objectName());
    }
}

TEST_F(HistoryKeysTest, WhileAYearIsTypedTheKeysBelongToItsText)
{
    EditNotes("first");
    YearBox& year = YearWidget(window_);
    year.setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    Key(year, Qt::Key_End);
    Key(year, Qt::Key_Backspace);
    ASSERT_EQ(year.Line()->text(), QStringLiteral("200"));

    Key(year, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(year.Line()->text(), QStringLiteral("2006"));
    Key(year, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(year.Line()->text(), QStringLiteral("200"));
    Key(year, Qt::Key_Z, Qt::ControlModifier);
    Key(year, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(year.Line()->text(), QStringLiteral("200"));
    EXPECT_EQ(Notes(), "first");

    QTest::keyClicks(&year, QStringLiteral("6"));
    Key(year, Qt::Key_Return);
    Key(year, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notes(), "Baker 03");
    EXPECT_EQ(year.Line()->text(), QStringLiteral("2006"));
}

TEST_F(HistoryKeysTest, AfterAYearIsEnteredTheKeysAreTheWindowsAgain)
{
    EditNotes("first");
    YearBox& year = YearWidget(window_);
    year.setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    QTest::keyClicks(&year, QStringLiteral("2007"));
    ASSERT_EQ(Model().View().Year(), 2007);

    Key(year, Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Notes(), "Baker 03");
    EXPECT_EQ(Model().View().Year(), 2006) << "the place that was touched is shown";
}

TEST_F(HistoryKeysTest, TheCaptionsSayWhatTheKeysWouldDo)
{
    EXPECT_FALSE(MenuAction("mnuY_Redo")->isEnabled());
    EditNotes("first");
    EXPECT_EQ(MenuAction("mnuY_Undo")->text(), QStringLiteral("&Undo Edit Transaction"));
    EXPECT_TRUE(MenuAction("mnuY_Undo")->isEnabled());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(MenuAction("mnuY_Redo")->text(), QStringLiteral("&Redo Edit Transaction"));
}

// Symptom: the key did nothing and nothing was said, because the current row was gone.
TEST_F(HistoryKeysTest, TheKeySaysWhyItDoesNothingIfAnotherProgramHasDeletedTheRow)
{
    events_.Before([this] { return Model().Others().Follow(); });
    EditNotes("first");
    ClickCell(2, kNotes);
    Connection connection;
    connection.Open("Data Source=" + books_.folder.Path() + "/db/clb.mdb");
    History another(
        connection, [] { return *Date::Of(2006, 3, 20); }, "another one");
    another.Begin("SQL");
    connection.Execute("DELETE FROM Trans WHERE PayeeName = 'first'");
    connection.Settle();

    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(BarText(),
              "Nothing was undone, because another program has changed the book meanwhile. Undo "
              "would now take back 'SQL'.");
    EXPECT_EQ(Bar().Button(0)->text(), QStringLiteral("Undo"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notes(), "first");
}

// Symptom: no command did anything, and nothing was said.
TEST_F(HistoryKeysTest, ADeletedRowStopsOnlyTheCommandsThatWorkOnIt)
{
    events_.Before([this] { return Model().Others().Follow(); });
    const auto deleteCurrentRow = [this] {
        ClickCell(2, kNotes);
        Connection connection;
        connection.Open("Data Source=" + books_.folder.Path() + "/db/clb.mdb");
        connection.Execute("DELETE FROM Trans WHERE Sequence = " +
                           ToText(Grid().ColumnValue(Register::Sequence)));
        connection.Settle();
    };

    deleteCurrentRow();
    const auto rows = books_.Rows("SELECT * FROM Trans");
    Press(Qt::Key_Delete);
    EXPECT_EQ(books_.Rows("SELECT * FROM Trans"), rows) << "another row was deleted";
    deleteCurrentRow();
    Press(Qt::Key_F1);
    EXPECT_EQ(books_.shell.helped.size(), 1U);
    deleteCurrentRow();
    ToolbarWidget(window_).Action("Forward")->trigger();
    EXPECT_EQ(Model().View().Period(), 4);
}

TEST_F(HistoryKeysTest, TheBarTakesRoomOnlyWhileItIsShown)
{
    EditNotes("first");
    EXPECT_FALSE(Bar().isVisible());
    const QRect grid = GridWidget(window_).geometry();

    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(GridWidget(window_).geometry().bottomRight(), grid.bottomRight());
    EXPECT_LT(GridWidget(window_).height(), grid.height());
    EXPECT_GE(Bar().height(), Bar().minimumSizeHint().height());
    EXPECT_EQ(Bar().geometry().topLeft(), grid.topLeft());
    EXPECT_FALSE(Bar().geometry().intersects(GridWidget(window_).geometry()));
    QTest::mouseClick(Bar().Closing(), Qt::LeftButton);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(GridWidget(window_).geometry(), grid);
}

TEST_F(HistoryKeysTest, TheBarsButtonDoesTheReverseAndLeavesTheFocusInTheGrid)
{
    EditNotes("first");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Bar().Button(0)->text(), QStringLiteral("Redo"));

    QTest::mouseClick(Bar().Button(0), Qt::LeftButton);

    EXPECT_EQ(Notes(), "first");
    EXPECT_EQ(Bar().Button(0)->text(), QStringLiteral("Undo"));
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(HistoryKeysTest, TheBarIsReachedAndUsedByKeysAlone)
{
    EditNotes("first");
    Press(Qt::Key_Z, Qt::ControlModifier);
    SecondTotal(window_)->isVisible() ? SecondTotal(window_)->setFocus(Qt::TabFocusReason)
                                      : FirstTotal(window_)->setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    Press(Qt::Key_Tab);
    ASSERT_TRUE(Bar().Button(0)->hasFocus());

    Press(Qt::Key_Space);

    EXPECT_EQ(Notes(), "first");
    EXPECT_TRUE(Bar().Button(0)->hasFocus());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_TRUE(window_.focusWidget() && window_.focusWidget()->isVisible());
    EXPECT_FALSE(Bar().isAncestorOf(window_.focusWidget()));
}

TEST_F(HistoryKeysTest, EscapeClosesTheBarUnlessACellIsInEdit)
{
    EditNotes("first");
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_F2);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Grid().Editing());
    EXPECT_TRUE(Bar().isVisible());

    Press(Qt::Key_Escape);
    EXPECT_FALSE(Bar().isVisible());

    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(Bar().isVisible());
    TreeWidget(window_).setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Bar().isVisible());
}

TEST_F(HistoryKeysTest, TheBarDoesNotCoverTheRowThatItIsAbout)
{
    for (int row = 10; row < 100; ++row)
        books_.Execute(
            "INSERT INTO Trans (AccountID, PostDate, PayeeName, Amount, [Year], Period, Category, "
            "[Sequence]) VALUES ('C1', #2006-03-05#, 'x', 1, 2006, 3, '(none)', " +
            std::to_string(row) + ")");
    events_.Run([this] { Model().View().Refresh(); });
    GridView& grid = GridWidget(window_);
    std::size_t last = 1;
    while (grid.viewport()->rect().contains(grid.Layout().CellRect(last + 1, kNotes)))
        ++last;
    ClickCell(last, kNotes);
    Type("typed");
    Press(Qt::Key_Return);

    Press(Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Grid().Row(), last);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.Layout().CellRect(last, kNotes)));
}

TEST_F(HistoryKeysTest, TheBarGoesWhenAnotherAccountIsShown)
{
    EditNotes("first");
    Press(Qt::Key_Z, Qt::ControlModifier);

    ClickNode("Purse");

    EXPECT_FALSE(Bar().isVisible());
}

TEST_F(HistoryKeysTest, ALongTextLeavesRoomForTheButtons)
{
    Model().Steps().Begin(std::string(400, 'w'));
    books_.Execute("UPDATE Trans SET PayeeName = 'x'");
    events_.Run([] {});
    window_.InnerSize(640, 400);

    Press(Qt::Key_Z, Qt::ControlModifier);

    const QRect bar = Bar().rect();
    EXPECT_TRUE(bar.contains(Bar().Button(0)->geometry()));
    EXPECT_TRUE(bar.contains(Bar().Closing()->geometry()));
}

TEST_F(HistoryKeysTest, ScreenReadersHearTheBar)
{
    ScreenReaderListens(true);
    const auto before = QAccessible::installUpdateHandler(Listen);
    EditNotes("first");
    Press(Qt::Key_Z, Qt::ControlModifier);
    QAccessible::installUpdateHandler(before);
    ScreenReaderListens(false);

    EXPECT_EQ(Announced(), BarText());
    EXPECT_NE(Announced().find("Undone: Edit Transaction"), std::string::npos);
}

}  // namespace
}  // namespace clb
