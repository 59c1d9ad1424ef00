// The window and its dialogs by keyboard and wheel alone.
#include <QApplication>
#include <QComboBox>
#include <QRadioButton>
#include <QStyleOption>
#include <QToolTip>
#include <QWheelEvent>

#include "app/frmAbout.h"
#include "app/frmOptions.h"
#include "app/frmSplit.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/grid/CellTip.h"
#include "desktop/look/Colors.h"
#include "import/frmSelectAccount.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

class HandsTest : public WindowTest {
protected:
    std::string Month()
    {
        return ToUtf8(MonthWidget(window_).currentText() + " " +
                      YearWidget(window_).Line()->text());
    }
    static void Turn(QWidget& widget, int angle)
    {
        const QPointF middle = widget.rect().center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, angle),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        QTest::qWait(1);
    }
    static void Press(Qt::Key key, Qt::KeyboardModifiers held)
    {
        Key(*QApplication::focusWidget(), key, held);
    }
};

TEST_F(HandsTest, EscapeInAnOpenMenuGivesTheKeysBackAtOnce)
{
    ClickNode("Checking");
    ClickCell(1, 1);
    for (QAction* menu : window_.menuBar()->actions()) {
        ClickAt(*window_.menuBar(), window_.menuBar()->actionGeometry(menu));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << ToUtf8(menu->text());
        Key(*QApplication::activePopupWidget(), Qt::Key_Escape);

        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(window_.menuBar()->activeAction(), nullptr);
        const std::size_t row = Grid().Row();
        Press(row == 1 ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        EXPECT_EQ(Grid().Row(), row == 1 ? 2U : 1U) << ToUtf8(menu->text());
    }
}

TEST_F(HandsTest, AClickIntoTheGridTakesTheKeysFromTheMenuBar)
{
    ClickNode("Checking");
    ClickCell(1, 1);
    Key(window_, Qt::Key_E, Qt::AltModifier);
    window_.menuBar()->setFocus(Qt::MenuBarFocusReason);

    ClickCell(2, 1);
    EXPECT_TRUE(GridWidget(window_).hasFocus());
    Press(Qt::Key_Down, Qt::NoModifier);
    EXPECT_EQ(Grid().Row(), 3U);
}

TEST_F(HandsTest, ControlWithPageDownAndUpStepsTheMonthFromAnywhere)
{
    ClickNode("Checking");
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Month(), "April 2006");

    ClickCell(1, 1);
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Month(), "March 2006");
}

TEST_F(HandsTest, TheMonthsKeysChangeTheYearAfterDecember)
{
    for (int month = 3; month <= 12; ++month)
        Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Month(), "January 2007");

    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Month(), "December 2006");
}

TEST_F(HandsTest, AKeyBeforeTheTreeIsDrawnAgainContinuesFromTheKeyBefore)
{
    TreeBinder& tree = TreeWidget(window_);
    ClickNode("Bank");
    QTest::keyClick(&tree, Qt::Key_Down);
    // The first step's press is done, but its drawing still waits.
    QCoreApplication::sendPostedEvents();
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::qWait(1);

    EXPECT_EQ(Model().TreeView.Node(Model().TreeView.Selected()).text, "Cash");
    EXPECT_EQ(ToUtf8(tree.currentItem()->text(0)), "Cash");
}

TEST_F(HandsTest, TheWheelOverTheMonthChangesTheYearToo)
{
    for (int month = 3; month > 0; --month)
        Turn(MonthWidget(window_), 120);
    EXPECT_EQ(Month(), "December 2005");

    Turn(MonthWidget(window_), -240);
    EXPECT_EQ(Month(), "February 2006");
}

TEST_F(HandsTest, AWheelOfFineStepsChangesTheMonthAfterAWholeStep)
{
    for (int part = 0; part < 3; ++part)
        Turn(MonthWidget(window_), -30);
    EXPECT_EQ(Month(), "March 2006");

    Turn(MonthWidget(window_), -30);
    EXPECT_EQ(Month(), "April 2006");
}

TEST_F(HandsTest, TheWheelOverTheYearStepsIt)
{
    Turn(YearWidget(window_), 120);

    EXPECT_EQ(Month(), "March 2007");
}

TEST_F(HandsTest, AClickIntoTheRowsKeepsATypedYearThatHasFewerRows)
{
    ClickNode("Checking");
    YearBox& year = YearWidget(window_);
    year.setFocus();
    year.Line()->selectAll();
    QTest::keyClicks(&year, "20");

    ClickCell(4, 2);

    EXPECT_EQ(Month(), "March 2020");
    EXPECT_TRUE(books_.messages.boxes.empty());
    EXPECT_EQ(Grid().Row(), 1U);
}

TEST_F(HandsTest, ARefusedRowKeepsTheMonthForAnyKeyAndTheWheel)
{
    ClickNode("Checking");
    ClickCell(1, 3);
    QTest::keyClicks(&GridWidget(window_), "much");

    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Month(), "March 2006");
    Turn(MonthWidget(window_), 120);
    EXPECT_EQ(Month(), "March 2006");
    Turn(YearWidget(window_), 120);
    EXPECT_EQ(Month(), "March 2006");

    EXPECT_TRUE(Grid().Marked());
    EXPECT_EQ(Grid().EditText(), "much");
}

TEST_F(HandsTest, AChangedRowIsSavedBeforeTheMonthIsLeft)
{
    ClickNode("Checking");
    ClickCell(4, 2);
    QTest::keyClicks(&GridWidget(window_), "Miller");

    Turn(MonthWidget(window_), -120);

    EXPECT_EQ(Month(), "April 2006");
    EXPECT_EQ(books_.Rows("SELECT Amount FROM Trans WHERE Description = 'Miller'").size() +
                  books_.Rows("SELECT Amount FROM Trans WHERE PayeeName = 'Miller'").size(),
              1U);
}

TEST_F(HandsTest, TabGoesThroughEveryControlOfTheWindowAndBackToTheFirst)
{
    ClickNode("Car");
    std::vector<QWidget*> missing = {&MonthWidget(window_), &GridWidget(window_),
                                     FirstTotal(window_), &TreeWidget(window_)};
    for (const char* key : {"New", "Link", "Back", "Forward"})
        missing.push_back(ToolbarWidget(window_).ButtonOf(key));
    bool year = false;
    for (int step = 0; step < 40; ++step) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_TRUE(focused);
        std::erase(missing, focused);
        year = year || YearWidget(window_).hasFocus();
        Key(*focused, Qt::Key_Tab);
    }
    EXPECT_TRUE(missing.empty()) << missing.size();
    EXPECT_TRUE(year);
}

TEST_F(HandsTest, AToolbarButtonShowsTheFocusAndIsPressedBySpace)
{
    QWidget* forward = ToolbarWidget(window_).ButtonOf("Forward");
    const QImage without = forward->grab().toImage();
    ToolbarWidget(window_).ButtonOf("Back")->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab, Qt::NoModifier);
    ASSERT_TRUE(forward->hasFocus());
    EXPECT_NE(forward->grab().toImage(), without);

    Key(*forward, Qt::Key_Space);

    EXPECT_EQ(Month(), "April 2006");
}

TEST_F(HandsTest, MonthAndYearHaveLettersThatNoMenuHas)
{
    QSet<QString> letters;
    for (const QAction* menu : window_.menuBar()->actions())
        letters << QKeySequence::mnemonic(menu->text()).toString();
    int before = static_cast<int>(letters.size());
    for (const QLabel* label : ToolbarWidget(window_).findChildren<QLabel*>()) {
        ASSERT_TRUE(label->buddy());
        letters << QKeySequence::mnemonic(label->text()).toString();
        EXPECT_EQ(letters.size(), ++before);
    }
    EXPECT_EQ(before, 7);

    Key(window_, Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(MonthWidget(window_).hasFocus());
    Key(window_, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(YearWidget(window_).hasFocus());
}

TEST_F(HandsTest, KeysMakeTheCurrentColumnNarrowerWiderAndFit)
{
    ClickNode("Checking");
    ClickCell(1, 2);
    const auto width = [this] { return Grid().Columns().Item(2).width; };
    const std::int32_t before = width();

    Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_GT(width(), before);
    Press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(width(), before);
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_LT(width(), before);
}

TEST_F(HandsTest, AKeyShowsTheCurrentCellsTip)
{
    books_.Execute(
        "INSERT INTO Budget (Category, Amount, [Year], Period, CategoryGroup) "
        "VALUES ('(none)', 500, 2006, 3, 'Home')");
    ClickNode("Budget");
    ClickCell(2, 1);

    Press(Qt::Key_F1, Qt::ControlModifier);

    EXPECT_TRUE(QToolTip::text().contains("Number of transactions: 4"));
    QToolTip::hideText();
}

TEST_F(HandsTest, TheTipOfAnAmountShowsTheBalanceInALegibleGrey)
{
    ClickNode("Checking");
    ClickCell(2, 3);
    Press(Qt::Key_F1, Qt::ControlModifier);
    const QString tip = QToolTip::text();
    QToolTip::hideText();

    EXPECT_TRUE(tip.contains("Balance after this row: ")) << ToUtf8(tip);
    EXPECT_TRUE(tip.contains(cell_tip::Grey(QToolTip::palette()).name())) << ToUtf8(tip);
    // Light, dark, and tips with the colours of paper.
    for (const auto& [text, ground] :
         {std::pair("#000000", "#ffffff"), std::pair("#ffffff", "#2a2a2a"),
          std::pair("#1a1a1a", "#ffffdc"), std::pair("#777777", "#ffffff")}) {
        QPalette tips;
        tips.setColor(QPalette::ToolTipText, QColor(text));
        tips.setColor(QPalette::ToolTipBase, QColor(ground));
        const QColor grey = cell_tip::Grey(tips);
        EXPECT_GE(Contrast(grey, QColor(ground)), 4.5) << text << " on " << ground;
        EXPECT_NE(grey, QColor(text));
    }
}

TEST_F(HandsTest, TheMonthIsNeverCut)
{
    QFont large = window_.font();
    for (const int points : {9, 18, 24})
        for (const int width : {600, 1200}) {
            large.setPointSize(points);
            window_.setFont(large);
            window_.resize(width, 400);
            QTest::qWait(1);
            ListBinder& month = MonthWidget(window_);
            QStyleOptionComboBox option;
            option.initFrom(&month);
            const QRect room = month.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                             QStyle::SC_ComboBoxEditField, &month);
            for (int index = 0; index < month.count(); ++index)
                EXPECT_GE(room.width(),
                          month.fontMetrics().horizontalAdvance(month.itemText(index)))
                    << ToUtf8(month.itemText(index)) << ", " << points << " points, " << width;
            EXPECT_LE(YearWidget(window_).geometry().right(),
                      YearWidget(window_).parentWidget()->width());
        }
}

/// The letters of a dialog's captions. None may occur twice.
void ExpectLettersOfItsOwn(Form& form, UserEvents& events, int least)
{
    FormDialog dialog(form, events, nullptr);
    QStringList letters;
    const auto take = [&letters](const QString& text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        EXPECT_FALSE(letter.isEmpty()) << text.toStdString();
        letters << letter;
    };
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        if (!button->text().isEmpty())
            take(button->text());
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->buddy())
            take(label->text());
    EXPECT_EQ(letters.removeDuplicates(), 0) << form.Name();
    EXPECT_GE(letters.size(), least) << form.Name();
    for (QWidget* field : dialog.findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(field) || qobject_cast<QComboBox*>(field)) {
            const auto labels = dialog.findChildren<QLabel*>();
            const bool described =
                !field->accessibleName().isEmpty() ||
                std::any_of(labels.begin(), labels.end(),
                            [field](const QLabel* label) { return label->buddy() == field; });
            EXPECT_TRUE(described) << field->objectName().toStdString();
        }
}

TEST_F(HandsTest, EveryDialogHasItsLettersEachOnce)
{
    frmSelectAccount account(Model().Data(), Model().View(), Model().TreeView, books_.modal,
                             books_.messages);
    FakeModalHost& modal = books_.modal;
    int seen = 0;
    const auto look = [&](int least) {
        return [&, least](Form& form) {
            ++seen;
            ExpectLettersOfItsOwn(form, events_, least);
            form.Hide();
        };
    };
    modal.steps.push_back(look(7));
    std::string id;
    account.ShowDialog(id);
    modal.steps.push_back(look(6));
    Money first;
    Money second;
    const AmountHabits habits;
    frmSplit(modal, &habits).Split(Money::Parse("5"), "Lunch", first, second);
    modal.steps.push_back(look(4));
    MenuAction("mnuT_Options")->trigger();
    modal.steps.push_back(look(1));
    MenuAction("mnuH_About")->trigger();

    EXPECT_EQ(seen, 4);
}

}  // namespace
}  // namespace clb
