#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "app/clsIni.h"
#include "app/frmAbout.h"
#include "app/frmOptions.h"
#include "app/frmSplit.h"
#include "desktop/forms/CheckListView.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/QtModalHost.h"
#include "import/frmSelectAccount.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

/// The account dialog as the window shows it, worked while it is open.
class FormDialogTest : public testing::Test {
protected:
    FormDialogTest() : events_(books_.messages), host_(events_) {}

    bool ShowDialog(std::function<void(FormDialog&)> work, std::string accountID = "")
    {
        frmSelectAccount form(books_.window.Data(), books_.window.View(), books_.window.TreeView,
                              host_, books_.messages);
        QTimer::singleShot(
            0, [&] { work(*dynamic_cast<FormDialog*>(QApplication::activeModalWidget())); });
        const bool chosen = form.ShowDialog(accountID);
        account_ = accountID;
        return chosen;
    }
    static void Press(FormDialog& dialog, const char* button)
    {
        QTest::mouseClick(dialog.WidgetOf(button), Qt::LeftButton);
    }
    static void Choose(FormDialog& dialog, const char* option)
    {
        QWidget* drawn = dialog.WidgetOf(option);
        QTest::mouseClick(drawn, Qt::LeftButton, Qt::NoModifier, QPoint(8, drawn->height() / 2));
    }

    Books books_;
    UserEvents events_;
    QtModalHost host_;
    std::string account_;
};

TEST_F(FormDialogTest, ADescriptionTypedAndOkMakeAnAccount)
{
    const bool chosen = ShowDialog([](FormDialog& dialog) {
        QTest::keyClicks(dialog.WidgetOf("txtDescription"), "Visa");
        QTest::keyClick(dialog.WidgetOf("cmbAccountType"), Qt::Key_Down);
        QTest::keyClick(dialog.WidgetOf("cmbAccountType"), Qt::Key_Down);
        Press(dialog, "btnOK");
    });

    EXPECT_TRUE(chosen);
    EXPECT_EQ(account_, "New Account");
    EXPECT_EQ(books_.One("SELECT Type FROM Account WHERE Description = 'Visa'"), "Credit Card");
}

TEST_F(FormDialogTest, EnterPressesOk)
{
    const bool chosen = ShowDialog([](FormDialog& dialog) {
        QTest::keyClicks(dialog.WidgetOf("txtDescription"), "Purse");
        QTest::keyClick(dialog.WidgetOf("txtDescription"), Qt::Key_Return);
    });

    EXPECT_TRUE(chosen);
}

TEST_F(FormDialogTest, AnEmptyDescriptionIsReportedAndTheDialogStaysOpen)
{
    bool open = false;
    const bool chosen = ShowDialog([&open](FormDialog& dialog) {
        Press(dialog, "btnOK");
        open = dialog.isVisible();
        Press(dialog, "btnCancel");
    });

    EXPECT_FALSE(chosen);
    EXPECT_TRUE(open);
    ASSERT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.messages.boxes[0].text, "You must enter an account description.");
}

TEST_F(FormDialogTest, EscapeCancels)
{
    EXPECT_FALSE(ShowDialog([](FormDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
}

TEST_F(FormDialogTest, ChoosingAnOptionEnablesWhatBelongsToIt)
{
    books_.AddAccount("C1", "Bank", "Checking");

    const bool chosen = ShowDialog(
        [](FormDialog& dialog) {
            EXPECT_FALSE(dialog.WidgetOf("cmbAccountID")->isEnabled());
            Choose(dialog, "optAccount(1)");
            EXPECT_TRUE(dialog.WidgetOf("cmbAccountID")->isEnabled());
            EXPECT_FALSE(dialog.WidgetOf("txtDescription")->isEnabled());
            EXPECT_FALSE(
                qobject_cast<QRadioButton*>(dialog.WidgetOf("optAccount(0)"))->isChecked());
            Press(dialog, "btnOK");
        },
        "777");

    EXPECT_TRUE(chosen);
    EXPECT_EQ(books_.One("SELECT AccountID FROM Account"), "777");
}

TEST_F(FormDialogTest, WithoutAccountsOnlyANewOneCanBeChosen)
{
    ShowDialog([](FormDialog& dialog) {
        EXPECT_FALSE(dialog.WidgetOf("optAccount(1)")->isEnabled());
        Press(dialog, "btnCancel");
    });
}

TEST(OtherFormTest, TickingABoxOfACheckListIsReportedToTheModel)
{
    FakeMessageBox messages;
    UserEvents events(messages);
    CheckList list("grdAccounts", {"Include", "Description"});
    list.Add({true, std::string("Checking")});
    list.Add({false, std::string("Purse")});

    CheckListView view(list, events);
    EXPECT_EQ(view.topLevelItem(1)->text(1), "Purse");
    EXPECT_EQ(view.topLevelItem(0)->checkState(0), Qt::Checked);
    view.topLevelItem(1)->setCheckState(0, Qt::Checked);

    EXPECT_EQ(list.Rows()[1][0], Value(true));
}

TEST_F(FormDialogTest, TheTitleOfADialogIsNotCut)
{
    Form form("frmOther", "A title that is much longer than anything in its dialog is");
    Button close("btnClose", "OK");
    form.Add(close);
    FormDialog dialog(form, events_, nullptr);
    dialog.show();

    EXPECT_GE(dialog.width(), TitleWidth(dialog));
    form.Caption("Its title becomes longer still while the dialog is shown to the user, and so on");
    QTest::qWait(1);
    dialog.resize(1, 1);
    EXPECT_GE(dialog.width(), TitleWidth(dialog));
}

TEST_F(FormDialogTest, TheSplitDialogsArrowsStepTheSecondAmount)
{
    frmSplit form(host_);
    QTimer::singleShot(0, [] {
        auto& dialog = *dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
        QTest::mouseClick(dialog.WidgetOf("upDown")->findChildren<QToolButton*>().first(),
                          Qt::LeftButton);
        EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.WidgetOf("txtOriginal"))->text(), "49");
        EXPECT_TRUE(qobject_cast<QLineEdit*>(dialog.WidgetOf("txtOriginal"))->isReadOnly());
        Press(dialog, "btnOK");
    });
    Money first;
    Money second;

    EXPECT_TRUE(form.Split(Money::Parse("100"), "Groceries", first, second));
    EXPECT_EQ(second, Money::Parse("51"));
}

TEST_F(FormDialogTest, AKeyTurnsTheSignOfTheSecondAmount)
{
    const AmountHabits habits;
    frmSplit form(host_, &habits);
    QTimer::singleShot(0, [] {
        auto& dialog = *dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
        QApplication::setActiveWindow(&dialog);
        auto* second = qobject_cast<QLineEdit*>(dialog.WidgetOf("txtNew"));
        QTest::keyClicks(second, "25.40");
        const auto* pieces = qobject_cast<QLabel*>(dialog.WidgetOf("lblPieces"));
        EXPECT_EQ(ToUtf8(pieces->text()),
                  "Stays: a payment of 60.00. New row: a payment of 25.40.");
        QTest::keyClick(second, Qt::Key_F9);
        EXPECT_EQ(second->text(), "+25.40");
        EXPECT_EQ(ToUtf8(pieces->text()),
                  "Stays: a payment of 110.80. New row: a deposit of 25.40.");
        QTest::keyClick(second, Qt::Key_F9);
        QTest::keyClick(second, Qt::Key_Return);
    });
    Money first;
    Money second;

    EXPECT_TRUE(form.Split(Money::Parse("-85.40"), "Groceries", first, second));
    EXPECT_EQ(second, Money::Parse("-25.40"));
}

TEST_F(FormDialogTest, TheWebSiteInTheAboutBoxIsALink)
{
    frmAbout form(host_, books_.shell);
    QTimer::singleShot(0, [] {
        auto& dialog = *dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
        auto* site = qobject_cast<QLabel*>(dialog.WidgetOf("lblWebSite"));
        QTest::mouseClick(site, Qt::LeftButton, Qt::NoModifier, QPoint(20, site->height() / 2));
        Press(dialog, "cmdOK");
    });

    form.ShowDialog();

    EXPECT_EQ(books_.shell.opened, (std::vector<std::string>{"https://corvane.example/"}));
}

TEST_F(FormDialogTest, TheSplitDialogRefusesTextThatIsNotAnAmountAndCancels)
{
    frmSplit form(host_);
    QTimer::singleShot(0, [] {
        auto& dialog = *dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
        QWidget* second = dialog.WidgetOf("txtNew");
        // The proposal is selected, so typing replaces it.
        QTest::keyClicks(second, "thirty");
        EXPECT_FALSE(dialog.WidgetOf("btnOK")->isEnabled());
        qobject_cast<QLineEdit*>(second)->selectAll();
        QTest::keyClicks(second, "30");
        EXPECT_TRUE(dialog.WidgetOf("btnOK")->isEnabled());
        EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.WidgetOf("txtOriginal"))->text(), "70");
        EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.WidgetOf("txtTotal"))->text(), "100");
        Press(dialog, "btnCancel");
    });
    Money first;
    Money second;

    EXPECT_FALSE(form.Split(Money::Parse("100"), "Groceries", first, second));
    EXPECT_EQ(second, Money());
}

class OptionsDialogTest : public FormDialogTest {
protected:
    OptionsDialogTest()
    {
        books_.AddAccount("1", "Bank", "Checking");
        books_.AddAccount("2", "Loan", "Car");
    }
    void Show(const std::function<void(FormDialog&)>& work)
    {
        frmOptions form(books_.window.Data(), host_, Settings());
        QTimer::singleShot(
            0, [&work] { work(*dynamic_cast<FormDialog*>(QApplication::activeModalWidget())); });
        form.ShowDialog();
    }
    std::string Settings() { return books_.window.SettingsFile(); }
    std::string Counted() { return books_.One("SELECT BudgetInclude FROM Account"); }
    static void ChangeEverything(FormDialog& dialog)
    {
        QTest::keyClicks(dialog.WidgetOf("txtBankUrl"), "https://bank.example");
        auto* accounts = dynamic_cast<CheckListView*>(dialog.WidgetOf("grdAccounts"));
        ASSERT_TRUE(accounts);
        EXPECT_EQ(accounts->topLevelItemCount(), 1) << "a loan never counts in the budget";
        const QRect line = accounts->visualItemRect(accounts->topLevelItem(0));
        QTest::mouseClick(accounts->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(line.left() + 12, line.center().y()));
    }
};

TEST_F(OptionsDialogTest, OkKeepsTheAddressAndTheTicks)
{
    const std::string before = Counted();

    Show([](FormDialog& dialog) {
        ChangeEverything(dialog);
        Press(dialog, "btnOK");
    });

    clsIni ini;
    ini.INIFile(Settings());
    EXPECT_EQ(ini.GetString("Settings", "BankUrl"), "https://bank.example");
    EXPECT_NE(Counted(), before);
}

TEST_F(OptionsDialogTest, CancelKeepsNothing)
{
    const std::string before = Counted();

    Show([](FormDialog& dialog) {
        ChangeEverything(dialog);
        Press(dialog, "btnCancel");
    });

    clsIni ini;
    ini.INIFile(Settings());
    EXPECT_EQ(ini.GetString("Settings", "BankUrl"), "");
    EXPECT_EQ(Counted(), before);
}

TEST(OtherFormTest, AFormWithoutItsOwnArrangementShowsAllItsControls)
{
    FakeMessageBox messages;
    UserEvents events(messages);
    Form form("frmOther", "Other");
    Label caption("lblName", "Name:");
    TextBox name("txtName", "Ada");
    Button ok("btnOK", "OK");
    for (Control* control : std::initializer_list<Control*>{&caption, &name, &ok})
        form.Add(*control);

    FormDialog dialog(form, events, nullptr);
    dialog.show();

    EXPECT_EQ(dialog.windowTitle(), "Other");
    EXPECT_TRUE(dialog.WidgetOf("lblName")->isVisible());
    EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.WidgetOf("txtName"))->text(), "Ada");
    EXPECT_LT(dialog.WidgetOf("lblName")->x(), dialog.WidgetOf("txtName")->x());
    EXPECT_GT(dialog.WidgetOf("btnOK")->y(), dialog.WidgetOf("txtName")->y());
}

}  // namespace
}  // namespace clb
