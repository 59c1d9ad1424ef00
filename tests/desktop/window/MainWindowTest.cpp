#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QWheelEvent>

#include "engine/Database.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::ElementsAre;

TEST_F(WindowTest, AClickOnATreeNodeShowsItsViewAndStandsInTheCaption)
{
    ClickNode("Checking");

    EXPECT_EQ(window_.windowTitle(), "Checking - Corvane Ledgerbook");
    EXPECT_EQ(Model().View().View(), vwAccount);
    EXPECT_EQ(window_.TreeWidget().currentItem()->text(0), "Checking");
    EXPECT_TRUE(window_.TreeWidget().hasFocus());
}

TEST_F(WindowTest, AClickOnTheSelectedNodeShowsItOnceMore)
{
    ClickNode("Checking");
    int reloads = 0;
    Model().View().Refreshed().connect([&reloads] { ++reloads; });

    ClickNode("Checking");

    EXPECT_EQ(reloads, 1);
}

TEST_F(WindowTest, TheArrowKeysWalkTheTreeAndShowEachNode)
{
    ClickNode("Net Worth");

    Key(window_.TreeWidget(), Qt::Key_Down);

    EXPECT_EQ(window_.windowTitle(), "Budget - Corvane Ledgerbook");
    EXPECT_EQ(Model().View().View(), vwBudget);
}

TEST_F(WindowTest, TheTreeShowsAClosedBookForANodeAndAnOpenOneForTheSelected)
{
    ClickNode("Purse");

    const auto picture = [this](const char* text) {
        const auto items =
            window_.TreeWidget().findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return items.first()->icon(0).pixmap(16, 16).toImage();
    };
    EXPECT_NE(picture("Purse"), picture("Checking"));
    EXPECT_EQ(picture("Car"), picture("Checking"));
}

TEST_F(WindowTest, FoldingANodeIsToldToTheModel)
{
    window_.TreeWidget().ItemOf(1)->setExpanded(false);

    EXPECT_FALSE(Model().TreeView.Node(1).expanded);
}

TEST_F(WindowTest, ChoosingAMonthShowsIt)
{
    window_.MonthWidget().setFocus(Qt::TabFocusReason);

    Key(window_.MonthWidget(), Qt::Key_Down);

    EXPECT_EQ(window_.MonthWidget().currentText(), "April");
    EXPECT_EQ(Model().View().Period(), 4);
}

TEST_F(WindowTest, FourTypedDigitsAreTheYear)
{
    window_.YearWidget().selectAll();

    QTest::keyClicks(window_.YearWidget().Line(), "199");
    EXPECT_EQ(Model().View().Year(), 2006);
    QTest::keyClicks(window_.YearWidget().Line(), "8");

    EXPECT_EQ(Model().View().Year(), 1998);
}

TEST_F(WindowTest, AYearOfThreeDigitsWaitsForEnter)
{
    window_.YearWidget().selectAll();
    QTest::keyClicks(window_.YearWidget().Line(), "996");

    Key(window_.YearWidget(), Qt::Key_Return);

    EXPECT_EQ(Model().View().Year(), 996);
}

TEST_F(WindowTest, LeavingTheYearBoxHandsItsTextOn)
{
    window_.YearWidget().setFocus(Qt::TabFocusReason);
    window_.YearWidget().selectAll();
    QTest::keyClicks(window_.YearWidget().Line(), "200");

    ClickNode("Budget");

    EXPECT_EQ(Model().View().Year(), 200);
}

TEST_F(WindowTest, TheSpinnersArrowsStepTheYear)
{
    Key(window_.YearWidget(), Qt::Key_Up);
    EXPECT_EQ(Model().View().Year(), 2007);
    EXPECT_EQ(window_.YearWidget().Line()->text(), "2007");

    Key(window_.YearWidget(), Qt::Key_Down);
    EXPECT_EQ(Model().View().Year(), 2006);
}

TEST_F(WindowTest, AYearThatIsNoNumberIsToldAndTheProgramGoesOn)
{
    window_.YearWidget().selectAll();
    QTest::keyClicks(window_.YearWidget().Line(), "soon");

    Key(window_.YearWidget(), Qt::Key_Return);

    ASSERT_EQ(books_.messages.boxes.size(), 1u);
    EXPECT_EQ(books_.messages.boxes[0],
              (FakeMessageBox::Box{"Type mismatch", box_style::Critical, "Corvane Ledgerbook"}));
    ClickNode("Budget");
    EXPECT_EQ(Model().View().View(), vwBudget);
}

TEST_F(WindowTest, BackAndForwardStepTheMonthAcrossTheYearsEnd)
{
    QWidget* toolbar = &window_.ToolbarWidget();
    const auto press = [toolbar](const char* key) {
        for (QObject* button : toolbar->findChildren<QWidget*>())
            if (button->property("text").toString() == key)
                QTest::mouseClick(qobject_cast<QWidget*>(button), Qt::LeftButton);
    };

    for (int month = 0; month < 3; ++month)
        press("Back");
    EXPECT_EQ(window_.MonthWidget().currentText(), "December");
    EXPECT_EQ(window_.YearWidget().Line()->text(), "2005");

    press("Forward");
    EXPECT_EQ(window_.MonthWidget().currentText(), "January");
    EXPECT_EQ(window_.YearWidget().Line()->text(), "2006");
}

TEST_F(WindowTest, TheMenusShowWhatTheModelEnables)
{
    ClickNode("Checking");
    EXPECT_FALSE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_TRUE(MenuAction("mnuF_Export")->isEnabled());

    ClickCell(1, 1);
    EXPECT_TRUE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_TRUE(window_.ToolbarWidget().Action("Delete")->isEnabled());

    ClickNode("Budget");
    EXPECT_FALSE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_FALSE(MenuAction("mnuF_Export")->isEnabled());
}

TEST_F(WindowTest, TheMenusStandInOrderWithAccessKeysAndSeparators)
{
    QStringList titles;
    for (const QAction* menu : window_.menuBar()->actions())
        titles << menu->text();
    EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "&Tools", "&Help"}));

    QStringList lines;
    for (const QAction* line : window_.menuBar()->actions().first()->menu()->actions())
        lines << (line->isSeparator() ? "-" : line->text());
    EXPECT_EQ(lines, (QStringList{"&Import...", "&Export...", "-", "&Print...", "-", "E&xit"}));
}

TEST_F(WindowTest, AMenuLineRunsItsCommand)
{
    ClickNode("Checking");
    ClickCell(2, 1);

    MenuAction("mnuE_MoveNext")->trigger();

    EXPECT_EQ(books_.One("SELECT Period FROM Trans WHERE PayeeName = 'Baker 03'"), "4");
}

TEST_F(WindowTest, TheStatusBarShowsItsFirstPanel)
{
    const auto status = [this] {
        return window_.findChild<QStatusBar*>()->findChild<QLabel*>()->text();
    };
    ClickNode("Checking");
    EXPECT_EQ(status(), "Select an item to work with.");

    ClickCell(1, 2);
    EXPECT_EQ(status(), "Double click or press F2 to edit cell content.");
}

TEST_F(WindowTest, TheTotalsStandUnderTheirColumnsAndASecondOneOnlyWhereThereIsOne)
{
    ClickNode("Net Worth");
    EXPECT_TRUE(window_.Totals().Second()->isVisible());
    const QRect opening = window_.GridWidget().Layout().CellRect(1, 4);
    EXPECT_EQ(window_.Totals().First()->x(), window_.GridWidget().x() + opening.left());

    ClickNode("Checking");
    EXPECT_FALSE(window_.Totals().Second()->isVisible());
    EXPECT_EQ(window_.Totals().First()->text(), "-18.00");
    EXPECT_EQ(window_.Totals().Caption()->text(), "Balance:");
    EXPECT_TRUE(window_.Totals().First()->isReadOnly());
}

TEST_F(WindowTest, ATotalWithoutRoomShowsNoOtherAmount)
{
    books_.Execute("UPDATE Account SET OpeningBalance = 1234567.89");
    ClickNode("Net Worth");
    EXPECT_EQ(window_.Totals().First()->text(), "3,703,703.67");

    window_.InnerSize(420, 400);

    EXPECT_THAT(window_.Totals().First()->text().toStdString(), testing::MatchesRegex("#+"));
    EXPECT_EQ(window_.Totals().First()->toolTip(), "3,703,703.67");
}

TEST_F(WindowTest, ResizingTheWindowLaysItsPartsOutAsTheModelSays)
{
    window_.InnerSize(800, 500);

    const Bounds place = Model().Grid.Place();
    EXPECT_EQ(window_.centralWidget()->size(), QSize(800, 500));
    EXPECT_EQ(window_.GridWidget().geometry(),
              QRect(place.left, place.top, place.width, place.height));
    EXPECT_EQ(place.left + place.width + 2, 800);
}

TEST_F(WindowTest, AGridThatKeepsTheFocusKeepsTheTreeFromBeingClicked)
{
    ClickNode("Checking");
    ClickCell(1, 1);
    const sigc::connection refusal = Grid().Validate().connect([](bool& cancel) { cancel = true; });

    ClickNode("Budget");
    EXPECT_EQ(Model().View().View(), vwAccount);
    EXPECT_TRUE(window_.GridWidget().hasFocus());
    EXPECT_EQ(window_.TreeWidget().currentItem()->text(0), "Checking");

    window_.MonthWidget().setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    EXPECT_TRUE(window_.GridWidget().hasFocus());
}

TEST_F(WindowTest, ADisabledWindowTakesNoInput)
{
    Model().window.Enabled(false);
    QWidget& tree = window_.TreeWidget();
    const QRect budget = window_.TreeWidget().visualItemRect(window_.TreeWidget().ItemOf(2));
    const QPoint place = window_.TreeWidget().viewport()->mapTo(&window_, budget.center());

    QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::qWait(1);
    EXPECT_EQ(Model().View().View(), vwNetWorth);
    EXPECT_TRUE(tree.isEnabled());

    Model().window.Enabled(true);
    QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::qWait(1);
    EXPECT_EQ(Model().View().View(), vwBudget);
}

TEST_F(WindowTest, ClosingTheWindowUnloadsTheProgramUnlessTheGridRefuses)
{
    sigc::connection refusal = Grid().Validate().connect([](bool& cancel) { cancel = true; });
    EXPECT_FALSE(window_.close());
    EXPECT_TRUE(Model().Loaded());

    refusal.disconnect();
    EXPECT_TRUE(window_.close());
    EXPECT_FALSE(Model().Loaded());
}

/// Symptom: a box opened although nothing was pressed.
TEST_F(WindowTest, ATipThatCannotBeReadIsNoError)
{
    Model().Data().Execute(
        "INSERT INTO Budget ([Year], Period, Category, CategoryGroup) VALUES (2006, 3, '(none)', "
        "'(none)')");
    Model().Settle();
    ClickNode("Budget");
    {
        Database storage;
        storage.OpenExisting(books_.folder.Path("db/clb.mdb"));
        storage.Run("UPDATE Trans SET PostDate = 'x'");
    }
    bool asked = false;
    Model().Data().Database().Trace([&asked](std::string_view sql) {
        asked = asked || sql.starts_with("SELECT PostDate, Trans.Description");
    });
    const QRect cell = window_.GridWidget().Layout().CellRect(2, 1);

    QMouseEvent rests(QEvent::MouseMove, cell.center(),
                      window_.GridWidget().mapToGlobal(cell.center()), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(window_.GridWidget().viewport(), &rests);
    QTest::qWait(Grid().TipDelay() + 200);

    Model().Data().Database().Trace({});
    EXPECT_TRUE(asked);
    EXPECT_TRUE(books_.messages.boxes.empty());
}

TEST_F(WindowTest, ExitUnloadsTheProgram)
{
    MenuAction("mnuF_Exit")->trigger();

    EXPECT_FALSE(Model().Loaded());
    EXPECT_FALSE(window_.isVisible());
}

}  // namespace
}  // namespace clb
