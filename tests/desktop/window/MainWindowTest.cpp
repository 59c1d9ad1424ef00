#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QWheelEvent>

#include "engine/storage/Database.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

TEST_F(WindowTest, AClickOnATreeNodeShowsItsViewAndItsNameInTheCaption)
{
    ClickNode("Checking");

    EXPECT_EQ(window_.windowTitle(), "Checking - Corvane Ledgerbook");
    EXPECT_EQ(Model().View().View(), vwAccount);
    EXPECT_EQ(TreeWidget(window_).currentItem()->text(0), "Checking");
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
}

TEST_F(WindowTest, AClickOnTheSelectedNodeShowsItAgain)
{
    ClickNode("Checking");
    int reloads = 0;
    Model().View().Refreshed().connect([&reloads] { ++reloads; });

    ClickNode("Checking");

    EXPECT_EQ(reloads, 1);
}

TEST_F(WindowTest, TheArrowKeysMoveThroughTheTreeAndShowEachNode)
{
    ClickNode("Net Worth");

    Key(TreeWidget(window_), Qt::Key_Down);

    EXPECT_EQ(window_.windowTitle(), "Budget - Corvane Ledgerbook");
    EXPECT_EQ(Model().View().View(), vwBudget);
}

TEST_F(WindowTest, TheTreeShowsAClosedBookForANodeAndAnOpenOneForTheSelected)
{
    ClickNode("Purse");

    const auto picture = [this](const char* text) {
        const auto items =
            TreeWidget(window_).findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return items.first()->icon(0).pixmap(16, 16).toImage();
    };
    EXPECT_NE(picture("Purse"), picture("Checking"));
    EXPECT_EQ(picture("Car"), picture("Checking"));
}

TEST_F(WindowTest, FoldingANodeIsReportedToTheModel)
{
    TreeWidget(window_).ItemOf(1)->setExpanded(false);

    EXPECT_FALSE(Model().TreeView.Node(1).expanded);
}

TEST_F(WindowTest, ChoosingAMonthShowsIt)
{
    MonthWidget(window_).setFocus(Qt::TabFocusReason);

    Key(MonthWidget(window_), Qt::Key_Down);

    EXPECT_EQ(MonthWidget(window_).currentText(), "April");
    EXPECT_EQ(Model().View().Period(), 4);
}

TEST_F(WindowTest, FourTypedDigitsAreTheYear)
{
    YearWidget(window_).selectAll();

    QTest::keyClicks(YearWidget(window_).Line(), "199");
    EXPECT_EQ(Model().View().Year(), 2006);
    QTest::keyClicks(YearWidget(window_).Line(), "8");

    EXPECT_EQ(Model().View().Year(), 1998);
}

TEST_F(WindowTest, AYearOfThreeDigitsWaitsForEnter)
{
    YearWidget(window_).selectAll();
    QTest::keyClicks(YearWidget(window_).Line(), "996");

    Key(YearWidget(window_), Qt::Key_Return);

    EXPECT_EQ(Model().View().Year(), 996);
}

TEST_F(WindowTest, LeavingTheYearBoxHandsItsTextOn)
{
    YearWidget(window_).setFocus(Qt::TabFocusReason);
    YearWidget(window_).selectAll();
    QTest::keyClicks(YearWidget(window_).Line(), "200");

    ClickNode("Budget");

    EXPECT_EQ(Model().View().Year(), 200);
}

TEST_F(WindowTest, TheSpinnersArrowsStepTheYear)
{
    Key(YearWidget(window_), Qt::Key_Up);
    EXPECT_EQ(Model().View().Year(), 2007);
    EXPECT_EQ(YearWidget(window_).Line()->text(), "2007");

    Key(YearWidget(window_), Qt::Key_Down);
    EXPECT_EQ(Model().View().Year(), 2006);
}

TEST_F(WindowTest, AYearThatIsNotANumberIsReportedAndTheProgramContinues)
{
    YearWidget(window_).selectAll();
    QTest::keyClicks(YearWidget(window_).Line(), "soon");

    Key(YearWidget(window_), Qt::Key_Return);

    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0],
              (FakeMessageBox::Box{"Type mismatch", box_style::Critical, "Corvane Ledgerbook"}));
    ClickNode("Budget");
    EXPECT_EQ(Model().View().View(), vwBudget);
}

TEST_F(WindowTest, BackAndForwardStepTheMonthAcrossTheYearsEnd)
{
    QWidget* toolbar = &ToolbarWidget(window_);
    const auto press = [toolbar](const char* key) {
        for (QObject* button : toolbar->findChildren<QWidget*>())
            if (button->property("text").toString() == key)
                QTest::mouseClick(qobject_cast<QWidget*>(button), Qt::LeftButton);
    };

    for (int month = 0; month < 3; ++month)
        press("Back");
    EXPECT_EQ(MonthWidget(window_).currentText(), "December");
    EXPECT_EQ(YearWidget(window_).Line()->text(), "2005");

    press("Forward");
    EXPECT_EQ(MonthWidget(window_).currentText(), "January");
    EXPECT_EQ(YearWidget(window_).Line()->text(), "2006");
}

TEST_F(WindowTest, TheMenusShowWhatTheModelEnables)
{
    ClickNode("Checking");
    EXPECT_FALSE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_TRUE(MenuAction("mnuF_Export")->isEnabled());

    ClickCell(1, 1);
    EXPECT_TRUE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_TRUE(ToolbarWidget(window_).Action("Delete")->isEnabled());

    ClickNode("Budget");
    EXPECT_FALSE(MenuAction("mnuE_Delete")->isEnabled());
    EXPECT_FALSE(MenuAction("mnuF_Export")->isEnabled());
}

TEST_F(WindowTest, TheMenusAreInOrderWithAccessKeysAndSeparators)
{
    QStringList titles;
    for (const QAction* menu : window_.menuBar()->actions())
        titles << menu->text();
    EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "&Tools", "Histor&y", "&Help"}));

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

TEST_F(WindowTest, TheTotalsAreBelowTheirColumnsAndASecondOneOnlyIfTheViewHasOne)
{
    ClickNode("Net Worth");
    EXPECT_TRUE(SecondTotal(window_)->isVisible());
    const QRect opening = GridWidget(window_).Layout().CellRect(1, 4);
    EXPECT_EQ(FirstTotal(window_)->x(), GridWidget(window_).x() + opening.left());

    ClickNode("Checking");
    EXPECT_FALSE(SecondTotal(window_)->isVisible());
    EXPECT_EQ(FirstTotal(window_)->text(), "-18.00");
    EXPECT_EQ(TotalsCaption(window_)->text(), "Balance:");
    EXPECT_TRUE(FirstTotal(window_)->isReadOnly());
}

TEST_F(WindowTest, ATotalThatDoesNotFitShowsNoWrongAmount)
{
    books_.Execute("UPDATE Account SET OpeningBalance = 1234567.89");
    ClickNode("Net Worth");
    EXPECT_EQ(FirstTotal(window_)->text(), "3,703,703.67");

    window_.InnerSize(420, 400);

    EXPECT_THAT(FirstTotal(window_)->text().toStdString(), testing::MatchesRegex("#+"));
    EXPECT_EQ(FirstTotal(window_)->toolTip(), "3,703,703.67");
}

TEST_F(WindowTest, ResizingTheWindowLaysItsPartsOutAsTheModelSays)
{
    window_.InnerSize(800, 500);

    const Bounds place = Model().Grid.Place();
    EXPECT_EQ(window_.centralWidget()->size(), QSize(800, 500));
    EXPECT_EQ(GridWidget(window_).geometry(),
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
    EXPECT_TRUE(GridWidget(window_).hasFocus());
    EXPECT_EQ(TreeWidget(window_).currentItem()->text(0), "Checking");

    MonthWidget(window_).setFocus(Qt::TabFocusReason);
    QTest::qWait(1);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(WindowTest, ADisabledWindowTakesNoInput)
{
    Model().window.Enabled(false);
    QWidget& tree = TreeWidget(window_);
    const QRect budget = TreeWidget(window_).visualItemRect(TreeWidget(window_).ItemOf(2));
    const QPoint place = TreeWidget(window_).viewport()->mapTo(&window_, budget.center());

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
TEST_F(WindowTest, ATipThatCannotBeReadIsNotAnError)
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
    const QRect cell = GridWidget(window_).Layout().CellRect(2, 1);

    QMouseEvent rests(QEvent::MouseMove, cell.center(),
                      GridWidget(window_).mapToGlobal(cell.center()), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(GridWidget(window_).viewport(), &rests);
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
