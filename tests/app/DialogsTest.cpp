// The dialogs for splitting a transaction, options, about and files.

#include <gtest/gtest.h>

#include "app/clsOpenSave.h"
#include "app/frmAbout.h"
#include "app/frmSplit.h"
#include "controls/CheckList.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

template <typename Kind>
Kind& In(Form& form, const char* name)
{
    return dynamic_cast<Kind&>(*form.Find(name));
}

class SplitDialogTest : public testing::Test {
protected:
    bool Split(const std::string& amount, std::function<void(Form&)> work)
    {
        host_.steps.push_back(std::move(work));
        return frmSplit(host_).Split(Money::Parse(amount), "Dinner", first_, second_);
    }
    static std::string Amounts(Form& form)
    {
        return In<TextBox>(form, "txtOriginal").Text() + " + " +
               In<TextBox>(form, "txtNew").Text() + " = " + In<TextBox>(form, "txtTotal").Text();
    }

    FakeModalHost host_;
    Money first_;
    Money second_;
};

TEST_F(SplitDialogTest, ProposesHalfAndSelectsIt)
{
    std::string amounts;
    std::string selected;
    const bool accepted = Split("100.00", [&](Form& form) {
        amounts = Amounts(form);
        selected = In<TextBox>(form, "txtNew").SelectedText();
        EXPECT_EQ(form.Caption(), "Split Transaction");
        EXPECT_EQ(In<TextBox>(form, "txtDescription").Text(), "Dinner");
    });

    EXPECT_FALSE(accepted);
    EXPECT_EQ(amounts, "50 + 50 = 100");
    EXPECT_EQ(selected, "50");
}

TEST_F(SplitDialogTest, TheFirstAmountIsWhatRemains)
{
    const bool accepted = Split("100", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("30");
        EXPECT_EQ(Amounts(form), "70 + 30 = 100");
        In<Button>(form, "btnOK").Press();
    });

    EXPECT_TRUE(accepted);
    EXPECT_EQ(first_, Money::Parse("70"));
    EXPECT_EQ(second_, Money::Parse("30"));
}

TEST_F(SplitDialogTest, ATextThatIsNotANumberCannotBeAccepted)
{
    Split("100", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("abc");
        EXPECT_FALSE(In<Button>(form, "btnOK").Enabled());
        EXPECT_EQ(Amounts(form), "50 + abc = 100");
        In<TextBox>(form, "txtNew").Text("120");
        EXPECT_TRUE(In<Button>(form, "btnOK").Enabled());
        EXPECT_EQ(Amounts(form), "-20 + 120 = 100");
    });
}

TEST_F(SplitDialogTest, TheAmountsAddUpToTheWholeForAnyNumber)
{
    constexpr std::pair<const char*, const char*> kTyped[] = {
        {"250", "-150 + 250 = 100"},
        {"-20", "120 + -20 = 100"},
        {"(5)", "105 + (5) = 100"},
        {" $1,000.5 ", "-900.5 +  $1,000.5  = 100"},
        {"0", "100 + 0 = 100"},
        // The fifth decimal is rounded to the even neighbour.
        {"33.33335", "66.6666 + 33.33335 = 100"}};
    Split("100", [&](Form& form) {
        for (const auto& [typed, amounts] : kTyped) {
            In<TextBox>(form, "txtNew").Text(typed);
            EXPECT_EQ(Amounts(form), amounts);
            EXPECT_TRUE(In<Button>(form, "btnOK").Enabled()) << typed;
        }
    });
}

TEST_F(SplitDialogTest, AnAmountLargerThanTheWholeReversesTheSignOfTheFirst)
{
    EXPECT_TRUE(Split("-100", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("-130");
        In<Button>(form, "btnOK").Press();
    }));

    EXPECT_EQ(first_, Money::Parse("30"));
    EXPECT_EQ(second_, Money::Parse("-130"));
}

TEST_F(SplitDialogTest, TheOtherAmountsStayWhileATextIsNotANumber)
{
    Split("100", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("30");
        for (const char* text : {"", "much", "3,0", "-"}) {
            In<TextBox>(form, "txtNew").Text(text);
            EXPECT_FALSE(In<Button>(form, "btnOK").Enabled()) << text;
            EXPECT_EQ(Amounts(form), std::string("70 + ") + text + " = 100");
        }
    });
}

TEST_F(SplitDialogTest, OnlyTheSecondAmountCanBeTyped)
{
    Split("100", [&](Form& form) {
        EXPECT_TRUE(In<TextBox>(form, "txtOriginal").Locked());
        EXPECT_TRUE(In<TextBox>(form, "txtTotal").Locked());
        EXPECT_FALSE(In<TextBox>(form, "txtNew").Locked());
    });
}

TEST_F(SplitDialogTest, TheSpinnerStepsTheSecondAmountByOne)
{
    Split("100", [&](Form& form) {
        In<Spinner>(form, "upDown").Step(3);
        EXPECT_EQ(Amounts(form), "47 + 53 = 100");
        In<TextBox>(form, "txtNew").Text("0.25");
        In<Spinner>(form, "upDown").Step(-1);
        EXPECT_EQ(Amounts(form), "100.75 + -0.75 = 100");
    });
}

TEST_F(SplitDialogTest, HalvesAreProposedInWholeCents)
{
    constexpr std::pair<const char*, const char*> kProposals[] = {
        {"-45.55", "-22.77 + -22.78 = -45.55"}, {"0.01", "0.01 + 0 = 0.01"},
        {"0.03", "0.01 + 0.02 = 0.03"},         {"0.05", "0.03 + 0.02 = 0.05"},
        {"10.0001", "5.0001 + 5 = 10.0001"},    {"0", "0 + 0 = 0"}};
    for (const auto& proposal : kProposals)
        Split(proposal.first, [&](Form& form) { EXPECT_EQ(Amounts(form), proposal.second); });
}

/// The dialog as a person sees it.
class SplitByHandTest : public SplitDialogTest {
protected:
    bool Split(const std::string& amount, std::function<void(Form&)> work)
    {
        host_.steps.push_back(std::move(work));
        return frmSplit(host_, &habits_).Split(Money::Parse(amount), "Dinner", first_, second_);
    }
    static std::string Pieces(Form& form) { return In<Label>(form, "lblPieces").Caption(); }

    AmountHabits habits_;
};

TEST_F(SplitByHandTest, AmountsHaveTwoDecimals)
{
    constexpr std::pair<const char*, const char*> kProposals[] = {
        {"100", "50.00 + 50.00 = 100.00"},
        {"-85.4", "-42.70 + -42.70 = -85.40"},
        {"2469", "1,234.50 + 1,234.50 = 2,469.00"},
        {"10.0001", "5.0001 + 5.00 = 10.0001"}};
    for (const auto& proposal : kProposals)
        Split(proposal.first, [&](Form& form) { EXPECT_EQ(Amounts(form), proposal.second); });
    Split("100", [&](Form& form) {
        In<Spinner>(form, "upDown").Step(1);
        EXPECT_EQ(Amounts(form), "49.00 + 51.00 = 100.00");
    });
}

TEST_F(SplitByHandTest, AnAmountWithoutASignIsAPieceOfThePayment)
{
    EXPECT_TRUE(Split("-85.40", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("25.40");
        EXPECT_EQ(Amounts(form), "-60.00 + 25.40 = -85.40");
        EXPECT_EQ(Pieces(form), "Stays: a payment of 60.00. New row: a payment of 25.40.");
        In<Button>(form, "btnOK").Press();
    }));

    EXPECT_EQ(first_, Money::Parse("-60"));
    EXPECT_EQ(second_, Money::Parse("-25.40"));
}

TEST_F(SplitByHandTest, TheButtonTurnsTheSign)
{
    EXPECT_TRUE(Split("-85.40", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("25.40");
        In<Button>(form, "btnTurn").Press();
        EXPECT_EQ(Amounts(form), "-110.80 + +25.40 = -85.40");
        EXPECT_EQ(Pieces(form), "Stays: a payment of 110.80. New row: a deposit of 25.40.");
        In<Button>(form, "btnTurn").Press();
        EXPECT_EQ(Amounts(form), "-60.00 + -25.40 = -85.40");
        In<Button>(form, "btnTurn").Press();
        In<Button>(form, "btnOK").Press();
    }));

    EXPECT_EQ(first_, Money::Parse("-110.80"));
    EXPECT_EQ(second_, Money::Parse("25.40"));
}

TEST_F(SplitByHandTest, APieceOfADepositHasTheSignThatWasTyped)
{
    Split("100", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("-20");
        EXPECT_EQ(Pieces(form), "Stays: a deposit of 120.00. New row: a payment of 20.00.");
        In<TextBox>(form, "txtNew").Text("100");
        EXPECT_EQ(Pieces(form), "Stays: nothing. New row: a deposit of 100.00.");
    });
}

TEST_F(SplitByHandTest, AmountsAreTypedAsInACell)
{
    habits_ = {',', "."};
    Split("-85.40", [&](Form& form) {
        In<TextBox>(form, "txtNew").Text("20,00+5,40");
        EXPECT_EQ(Pieces(form), "Stays: a payment of 60.00. New row: a payment of 25.40.");
        In<TextBox>(form, "txtNew").Text("1,234");
        EXPECT_FALSE(In<Button>(form, "btnOK").Enabled());
        EXPECT_FALSE(In<Button>(form, "btnTurn").Enabled());
        EXPECT_EQ(Pieces(form), "\"1,234\" can mean 1.234 or 1234. Please enter 1.2340 or 1234.");
        In<TextBox>(form, "txtNew").Text("");
        EXPECT_EQ(Pieces(form), "Please enter a number, for example 1,234.50.");
    });
}

TEST(OptionsTest, ListsTheAccountsThatMayCountAndStoresWhatChanged)
{
    Books books;
    books.AddAccount("10", "Bank", "Checking");
    books.AddAccount("50", "Investment", "Fund");
    books.AddAccount("30", "Credit Card", "Visa");
    books.modal.steps.push_back([](Form& form) {
        auto& list = In<CheckList>(form, "grdAccounts");
        EXPECT_EQ(list.Columns().at(0), "Include");
        ASSERT_EQ(list.Rows().size(), 2U);
        EXPECT_EQ(ToText(list.Rows()[1][1]), "Visa");
        list.Check(2, false);
        In<TextBox>(form, "txtBankUrl").Text("https://bank.example/");
        In<Button>(form, "btnOK").Press();
    });

    books.window.menus.Find("mnuT_Options")->Press();

    EXPECT_EQ(books.Rows("SELECT AccountID, BudgetInclude FROM Account"),
              (std::vector<std::string>{"10|True", "50|True", "30|False"}));
    books.window.toolbar.Press("Link");
    EXPECT_EQ(books.shell.opened, (std::vector<std::string>{"https://bank.example/"}));
}

TEST(OptionsTest, CancelWritesNothing)
{
    Books books;
    books.AddAccount("10", "Bank", "Checking");
    books.modal.steps.push_back([](Form& form) {
        In<CheckList>(form, "grdAccounts").Check(1, false);
        In<TextBox>(form, "txtBankUrl").Text("https://bank.example/");
    });

    books.window.menus.Find("mnuT_Options")->Press();

    EXPECT_EQ(books.One("SELECT BudgetInclude FROM Account"), "True");
    EXPECT_FALSE(books.folder.Holds("cvlb.ini"));
}

TEST(BankLinkTest, WithoutAnAddressItSaysWhereToSetIt)
{
    Books books;

    books.window.toolbar.Press("Link");

    EXPECT_TRUE(books.shell.opened.empty());
    EXPECT_EQ(books.messages.boxes,
              (std::vector<FakeMessageBox::Box>{
                  {"You have not yet set your bank's URL, please do so from Tools|Options...", 48,
                   "Corvane Ledgerbook"}}));
}

TEST(AboutTest, ShowsNameVersionAndLicence)
{
    FakeModalHost host;
    FakeShell shell;
    host.steps.push_back([](Form& form) {
        EXPECT_EQ(form.Caption(), "About Corvane Ledgerbook");
        EXPECT_EQ(In<Label>(form, "lblAppName").Caption(), "Corvane Ledgerbook 1.0.0");
        EXPECT_TRUE(In<Label>(form, "lblLegal").Caption().starts_with("MIT License"));
        In<Label>(form, "lblWebSite").PressClick();
        In<Button>(form, "cmdOK").Press();
    });

    frmAbout(host, shell).ShowDialog();

    EXPECT_EQ(shell.opened, (std::vector<std::string>{"https://corvane.example/"}));
}

TEST(clsOpenSaveTest, AFilterEndsWithADividerWhetherGivenOrNot)
{
    FakeFileDialog dialogs;
    clsOpenSave dialog(dialogs);
    EXPECT_EQ(dialog.Filter(), "All Files (*.*)|*.*");

    dialog.Filter("Text|*.txt");
    EXPECT_EQ(dialog.Filter(), "Text|*.txt|");
    dialog.Filter("Text|*.txt|");
    EXPECT_EQ(dialog.Filter(), "Text|*.txt|");
    dialog.Filter("A|*.a;*.b|All (*.*)|*.*");
    EXPECT_EQ(dialog.Filter(), "A|*.a;*.b|All (*.*)|*.*|");
    dialog.Filter("caf\u00e9|*.\U0001F600");
    EXPECT_EQ(dialog.Filter(), "caf\u00e9|*.\U0001F600|");
}

TEST(clsOpenSaveTest, CancellingKeepsTheProperties)
{
    FakeFileDialog dialogs;
    clsOpenSave dialog(dialogs);
    dialog.FileName = "before.ofx";
    dialog.Flags = 4100;

    EXPECT_FALSE(dialog.GetFileName());

    EXPECT_EQ(dialog.FileName, "before.ofx");
    EXPECT_EQ(dialog.Flags, 4100);
    EXPECT_EQ(dialog.FileTitle, "");
}

TEST(clsOpenSaveTest, AChoiceSetsNameTitleAndExtension)
{
    FakeFileDialog dialogs;
    dialogs.answers = {"/home/me/My statement.OFX"};
    clsOpenSave dialog(dialogs);

    EXPECT_TRUE(dialog.ShowSave());

    EXPECT_TRUE(dialogs.questions.at(0).save);
    EXPECT_EQ(dialog.FileName, "/home/me/My statement.OFX");
    EXPECT_EQ(dialog.FileTitle, "My statement.OFX");
    EXPECT_EQ(dialog.FileExt, "OFX");
}

TEST(clsOpenSaveTest, TheExtensionIsWhatFollowsTheNamesLastPeriod)
{
    constexpr const char* kChoices[][3] = {
        {"/home/me/march.2006.final.ofx", "march.2006.final.ofx", "ofx"},
        {"/home/me.d/march", "march", ""},
        {"/home/me/march.", "march.", ""},
        {"/\u8d85.d/caf\u00e9.qif", "caf\u00e9.qif", "qif"},
        {"march.ofx", "march.ofx", "ofx"}};
    for (const auto& [path, title, extension] : kChoices) {
        FakeFileDialog dialogs;
        dialogs.answers = {path};
        clsOpenSave dialog(dialogs);

        EXPECT_TRUE(dialog.GetFileName());

        EXPECT_EQ(dialog.FileName, path);
        EXPECT_EQ(dialog.FileTitle, title) << path;
        EXPECT_EQ(dialog.FileExt, extension) << path;
    }
}

TEST(AboutTest, OnlyALaterProgramsDataFileHasASeparateLine)
{
    FakeModalHost host;
    FakeShell shell;
    std::vector<std::string> notes;
    const auto look = [&](Form& form) {
        const Control* const note = form.Find("lblSchema");
        notes.push_back(note ? dynamic_cast<const Label&>(*note).Caption() : "");
    };
    host.steps = {look, look};

    frmAbout(host, shell, 2).ShowDialog();
    frmAbout(host, shell, 7).ShowDialog();

    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0], "");
    EXPECT_EQ(notes[1],
              "Your data file has the schema version 7 of a later program. This one knows version "
              "2 and uses the file as it is.");
}

}  // namespace
}  // namespace clb
