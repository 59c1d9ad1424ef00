// The ways about the window: parts, accounts, months, menus of the places, and the grid's zoom.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMenu>
#include <QWheelEvent>

#include "desktop/grid/CellEditor.h"
#include "desktop/window/MonthPrompt.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

using testing::ElementsAre;

class WaysTest : public WindowTest {
protected:
    ~WaysTest() override
    {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* focused = QApplication::focusWidget();
        Key(focused ? *focused : window_, key, held);
    }
    std::string Focused() { return Model().window.Focus()->Name(); }
    std::string Shown() { return ToUtf8(window_.windowTitle()); }
    std::string Month()
    {
        return ToUtf8(MonthWidget(window_).currentText() + " " +
                      YearWidget(window_).Line()->text());
    }
    QRect HeadOf(std::size_t row) { return GridWidget(window_).Layout().SelectorRect(row); }
    void DoubleClick(const QRect& place)
    {
        QWidget& view = *GridWidget(window_).viewport();
        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, place.center());
        QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, place.center());
        QTest::qWait(1);
    }
    MonthPrompt* AskMonth()
    {
        Press(Qt::Key_L, Qt::ControlModifier);
        return dynamic_cast<MonthPrompt*>(QApplication::activePopupWidget());
    }
    /// Asks for a place's menu as the right button does, and returns the captions of its lines.
    std::vector<std::string> MenuAt(QWidget& view, const QRect& place)
    {
        QTest::mouseClick(&view, Qt::RightButton, Qt::NoModifier, place.center());
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place.center(),
                                view.mapToGlobal(place.center()));
        QApplication::sendEvent(&view, &asked);
        QTest::qWait(1);
        return Lines();
    }
    static std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            for (const QAction* line : menu->actions())
                if (!line->isSeparator())
                    lines.push_back(ToUtf8(line->text().remove('&')));
        return lines;
    }
    static void Choose(const char* caption)
    {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* line : menu->actions())
            if (line->text().remove('&') == QLatin1String(caption)) {
                ClickAt(*menu, menu->actionGeometry(line));
                return;
            }
        FAIL() << caption;
    }
    static void Turn(QWidget& widget, int angle, Qt::KeyboardModifiers held)
    {
        const QPointF middle = widget.rect().center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, angle),
                          Qt::NoButton, held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        QTest::qWait(1);
    }
};

TEST_F(WaysTest, AKeyGoesRoundTheTreeTheGridAndTheMonth)
{
    std::vector<std::string> forward;
    for (int step = 0; step < 4; ++step) {
        Press(Qt::Key_F6);
        forward.push_back(Focused());
    }
    EXPECT_THAT(forward, ElementsAre("Grid", "cmbPeriod", "TreeView", "Grid"));
    EXPECT_TRUE(GridWidget(window_).hasFocus());

    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(TreeWidget(window_).hasFocus());
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(MonthWidget(window_).hasFocus());
}

TEST_F(WaysTest, TheTotalsBelongToTheGridAndTheYearToTheMonth)
{
    FirstTotal(window_)->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_F6);
    EXPECT_TRUE(MonthWidget(window_).hasFocus());

    YearWidget(window_).setFocus(Qt::TabFocusReason);
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(WaysTest, ARefusedRowIsNotLeftForAnotherPart)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    QTest::keyClicks(&GridWidget(window_), "much");

    Press(Qt::Key_F6);

    EXPECT_EQ(Focused(), "Grid");
    EXPECT_TRUE(Grid().Marked());
    EXPECT_TRUE(GridWidget(window_).Editor().Line().hasFocus());
}

TEST_F(WaysTest, EnterInTheTreeGoesToTheRows)
{
    ClickNode("Bank");
    QTest::keyClick(&TreeWidget(window_), Qt::Key_Down);
    QTest::keyClick(&TreeWidget(window_), Qt::Key_Return);
    QTest::qWait(1);

    EXPECT_EQ(Shown(), "Checking - Corvane Ledgerbook");
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(WaysTest, EnterInTheTreeKeepsTheCurrentRow)
{
    ClickNode("Checking");
    ClickCell(3, 2);
    Press(Qt::Key_F6, Qt::ShiftModifier);
    ASSERT_TRUE(TreeWidget(window_).hasFocus());

    Press(Qt::Key_Return);

    EXPECT_EQ(Grid().Row(), 3U);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
}

TEST_F(WaysTest, AnAccountsRowIsOpenedByItsKey)
{
    ClickNode("Net Worth");
    ClickCell(2, 1);
    const std::string account = Grid().CellText(2, 1);

    Press(Qt::Key_Return, Qt::ControlModifier);

    EXPECT_EQ(Shown(), account + " - Corvane Ledgerbook");
    EXPECT_TRUE(GridWidget(window_).hasFocus());
    EXPECT_EQ(ToUtf8(TreeWidget(window_).currentItem()->text(0)), account);
}

TEST_F(WaysTest, AnAccountsRowIsSavedBeforeItIsOpened)
{
    ClickNode("Net Worth");
    ClickCell(1, 1);
    const std::string before = Grid().CellText(1, 1);
    ASSERT_EQ(before, "Checking");
    QTest::keyClicks(&GridWidget(window_), "Giro");

    Press(Qt::Key_Return, Qt::ControlModifier);

    EXPECT_EQ(books_.One("SELECT Description FROM Account WHERE AccountID = 'C1'"), "Giro");
    EXPECT_EQ(Shown(), "Giro - Corvane Ledgerbook");
}

TEST_F(WaysTest, ADoubleClickOnTheHeadOfARowOpensItsAccount)
{
    ClickNode("Net Worth");
    const std::string account = Grid().CellText(3, 1);

    DoubleClick(HeadOf(3));

    EXPECT_EQ(Shown(), account + " - Corvane Ledgerbook");
    EXPECT_FALSE(Grid().Editing());
}

TEST_F(WaysTest, NeitherOpensARowThatIsNoAccount)
{
    ClickNode("Checking");
    DoubleClick(HeadOf(2));
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "Checking - Corvane Ledgerbook");

    ClickNode("Net Worth");
    ClickCell(Grid().Rows().NewRow(), 1);
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "Net Worth - Corvane Ledgerbook");
}

TEST_F(WaysTest, AMonthIsTypedAndShown)
{
    ClickNode("Checking");
    ClickCell(1, 1);
    MonthPrompt* prompt = AskMonth();
    ASSERT_TRUE(prompt);
    EXPECT_EQ(ToUtf8(prompt->Hint()), "For example 2024-3 or mar 24");

    QTest::keyClicks(&prompt->Line(), "feb 24");
    EXPECT_EQ(ToUtf8(prompt->Hint()), "February 2024");
    Key(prompt->Line(), Qt::Key_Return);

    EXPECT_EQ(Month(), "February 2024");
    EXPECT_EQ(Model().View().Period(), 2);
    EXPECT_EQ(Model().View().Year(), 2024);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(WaysTest, ATextThatIsNoMonthStaysWithAHint)
{
    MonthPrompt* prompt = AskMonth();
    ASSERT_TRUE(prompt);
    QTest::keyClicks(&prompt->Line(), "3/4");

    Key(prompt->Line(), Qt::Key_Return);
    EXPECT_EQ(ToUtf8(prompt->Hint()), "That is no month. For example 2024-3 or mar 24");
    EXPECT_EQ(Month(), "March 2006");

    Key(prompt->Line(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(Month(), "March 2006");
}

TEST_F(WaysTest, ARefusedRowIsNotLeftForAMonth)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    QTest::keyClicks(&GridWidget(window_), "much");

    EXPECT_FALSE(AskMonth());
    EXPECT_TRUE(Grid().Marked());
}

TEST_F(WaysTest, TheMenuOfATransactionHasItsCommands)
{
    ClickNode("Checking");
    const auto lines =
        MenuAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().CellRect(3, 2));

    EXPECT_EQ(Grid().Row(), 3U);
    EXPECT_THAT(lines,
                ElementsAre("New Record", "Delete Record", "Move To Previous Month",
                            "Move To Next Month", "Split Transaction", "Undo Change", "Redo"));
    Choose("Move To Next Month");
    EXPECT_EQ(books_.One("SELECT Period FROM Trans WHERE PayeeName = 'Baker 02'"), "4");
}

TEST_F(WaysTest, TheMenuOfTheLineForANewRowBeginsOne)
{
    ClickNode("Purse");
    const auto lines =
        MenuAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().CellRect(1, 3));
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "New Record");

    Choose("New Record");

    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Col(), 1);
}

TEST_F(WaysTest, AZoomedEmptyPageHasAllItsTextsLarger)
{
    ClickNode("Purse");
    std::vector<int> before;
    const auto heights = [this] {
        std::vector<int> all;
        for (const QLabel* label : GridWidget(window_).Empty().findChildren<QLabel*>())
            all.push_back(label->fontMetrics().height());
        return all;
    };
    before = heights();
    window_.GridZoomPercent(150);
    QTest::qWait(1);

    const auto after = heights();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t label = 0; label < after.size(); ++label)
        EXPECT_GT(after[label], before[label]);
}

TEST_F(WaysTest, TheMenuOfAnAccountsRowOpensIt)
{
    ClickNode("Net Worth");
    const std::string account = Grid().CellText(2, 1);
    const auto lines =
        MenuAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().CellRect(2, 2));

    EXPECT_THAT(lines,
                ElementsAre("Open Account", "New Record", "Delete Record", "Undo Change", "Redo"));
    Choose("Open Account");
    EXPECT_EQ(Shown(), account + " - Corvane Ledgerbook");
}

TEST_F(WaysTest, TheMenuOfABudgetGroupFoldsIt)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('Rent', 500, 2006, 3, 'Home')");
    ClickNode("Budget");
    const std::size_t before = Grid().Rows().Count();
    const auto lines =
        MenuAt(*GridWidget(window_).viewport(), GridWidget(window_).Layout().RowRect(1));

    EXPECT_THAT(lines, ElementsAre("Fold Group", "New Record", "Delete Record",
                                   "Copy Budget From Previous Month", "Undo Change", "Redo"));
    Choose("Fold Group");
    EXPECT_LT(Grid().Rows().Count(), before);
}

TEST_F(WaysTest, TheRightButtonShowsTheNodeAndItsMenu)
{
    TreeBinder& tree = TreeWidget(window_);
    QTreeWidgetItem* item = nullptr;
    for (std::int32_t node = 1; node <= Model().TreeView.Count(); ++node)
        if (Model().TreeView.Node(node).text == "Checking")
            item = tree.ItemOf(node);
    ASSERT_TRUE(item);

    const auto lines = MenuAt(*tree.viewport(), tree.visualItemRect(item));

    EXPECT_EQ(Shown(), "Checking - Corvane Ledgerbook");
    EXPECT_THAT(lines, ElementsAre("Go to Rows", "New Record", "Import...", "Export...",
                                   "Undo Change", "Redo"));
    Choose("New Record");
    EXPECT_TRUE(Grid().Editing());
    EXPECT_EQ(Grid().Position(), 1);
}

TEST_F(WaysTest, TheMenuOfANodeWithOthersBelowFoldsIt)
{
    TreeBinder& tree = TreeWidget(window_);
    ASSERT_TRUE(tree.ItemOf(1)->isExpanded());
    MenuAt(*tree.viewport(), tree.visualItemRect(tree.ItemOf(1)));

    Choose("Fold");

    EXPECT_FALSE(Model().TreeView.Node(1).expanded);
}

TEST_F(WaysTest, TheKeyForMenusOpensThatOfTheCurrentCell)
{
    ClickNode("Checking");
    ClickCell(2, 2);
    GridView& grid = GridWidget(window_);
    const QVariant cell = static_cast<QWidget&>(grid).inputMethodQuery(Qt::ImCursorRectangle);
    const QPoint place = cell.toRect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, grid.mapToGlobal(place));
    QApplication::sendEvent(&grid, &asked);
    QTest::qWait(1);

    ASSERT_TRUE(QApplication::activePopupWidget());
    const QPoint open = QApplication::activePopupWidget()->pos();
    EXPECT_TRUE(grid.Layout().CellRect(2, 2).contains(grid.viewport()->mapFromGlobal(open)));
}

TEST_F(WaysTest, TheWheelZoomsTheGridWithControl)
{
    ClickNode("Checking");
    GridView& grid = GridWidget(window_);
    const int row = grid.Layout().RowHeight();
    const int font = TreeWidget(window_).font().pointSize();

    Turn(*grid.viewport(), 240, Qt::ControlModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 120);
    EXPECT_GT(grid.Layout().RowHeight(), row);
    EXPECT_EQ(TreeWidget(window_).font().pointSize(), font);

    Turn(*grid.viewport(), -360, Qt::ControlModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 90);
    EXPECT_LE(grid.Layout().RowHeight(), row);
    Turn(*grid.viewport(), -120, Qt::NoModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 90);
}

TEST_F(WaysTest, TheMiddleButtonGoesToTheOrdinarySizeAndBack)
{
    GridView& grid = GridWidget(window_);
    Turn(*grid.viewport(), 360, Qt::ControlModifier);

    QTest::mouseClick(grid.viewport(), Qt::MiddleButton);
    EXPECT_EQ(window_.GridZoomPercent(), 100);
    EXPECT_EQ(grid.font(), window_.font());

    QTest::mouseClick(grid.viewport(), Qt::MiddleButton);
    EXPECT_EQ(window_.GridZoomPercent(), 130);
}

TEST_F(WaysTest, KeysZoomTheGridAndNeverBeyondItsLimits)
{
    ClickNode("Checking");
    ClickCell(1, 1);
    for (int step = 0; step < 40; ++step)
        Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 300);
    for (int step = 0; step < 40; ++step)
        Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 50);

    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(window_.GridZoomPercent(), 100);
    EXPECT_FALSE(Grid().Editing());
}

TEST_F(WaysTest, AKeyShowsTheChangedPrices)
{
    books_.Execute("INSERT INTO Investment (StockSymbol, LastPrice) VALUES ('ACME', 7.25)");
    Press(Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_EQ(books_.messages.boxes.size(), 1U) << "nothing was updated yet";
    std::vector<std::string> forms;
    books_.modal.steps.push_back([&](Form& form) { forms.push_back(form.Name()); });

    MenuAction("mnuT_UpdateQuotes")->trigger();
    Press(Qt::Key_F5, Qt::ShiftModifier);

    EXPECT_EQ(forms, std::vector<std::string>{"frmQuotes"});
}

TEST_F(WaysTest, AZoomedCellIsEditedInItsPlaceAndSize)
{
    ClickNode("Checking");
    window_.GridZoomPercent(200);
    ClickCell(2, 2);

    Press(Qt::Key_F2);

    const QLineEdit& line = GridWidget(window_).Editor().Line();
    EXPECT_EQ(line.font().pointSizeF(), GridWidget(window_).font().pointSizeF());
    EXPECT_GE(line.height(), line.fontMetrics().height());
}

}  // namespace
}  // namespace clb
