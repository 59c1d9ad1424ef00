// The window and its dialogs by keyboard and wheel alone.
#include <QApplication>
#include <QComboBox>
#include <QRadioButton>
#include <QToolTip>
#include <QWheelEvent>

#include "app/frmAbout.h"
#include "app/frmOptions.h"
#include "app/frmSplit.h"
#include "desktop/forms/FormDialog.h"
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
    modal.steps.push_back(look(5));
    Money first;
    Money second;
    frmSplit(modal).Split(Money::Parse("5"), "Lunch", first, second);
    modal.steps.push_back(look(4));
    MenuAction("mnuT_Options")->trigger();
    modal.steps.push_back(look(1));
    MenuAction("mnuH_About")->trigger();

    EXPECT_EQ(seen, 4);
}

}  // namespace
}  // namespace clb
