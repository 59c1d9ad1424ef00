#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "import/frmSelectAccount.h"
#include "tests/support/Books.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SelectAccountTest : public ::testing::Test {
protected:
    /// Shows the dialog for the identifier and runs `work` on it.
    bool Ask(const std::string& identifier, const std::function<void(Form&)>& work)
    {
        identifier_ = identifier;
        frmSelectAccount dialog(books_.window.Data(), books_.window.View(), books_.window.TreeView,
                                books_.modal, books_.messages);
        books_.modal.steps.push_back(work);
        return dialog.ShowDialog(identifier_);
    }

    template <typename T>
    static T& The(Form& form, const std::string& name)
    {
        return dynamic_cast<T&>(*form.Find(name));
    }
    static void Press(Form& form, const std::string& button) { The<Button>(form, button).Press(); }
    static void Describe(Form& form, const std::string& text)
    {
        The<TextBox>(form, "txtDescription").Text(text);
    }
    static void Map(Form& form, std::int32_t account)
    {
        The<OptionButton>(form, "optAccount(1)").Choose();
        The<ListBox>(form, "cmbAccountID").Index(account);
    }
    static std::vector<std::string> Texts(const ListBox& list)
    {
        std::vector<std::string> texts;
        for (const ListBox::Item& item : list.Items())
            texts.push_back(item.text);
        return texts;
    }
    std::vector<std::string> Accounts()
    {
        return books_.Rows("SELECT AccountID, Description, Type FROM Account ORDER BY Sequence");
    }
    const TreeNode& SelectedNode()
    {
        const Tree& tree = books_.window.TreeView;
        return tree.Node(tree.Selected());
    }

    Books books_;
    std::string identifier_;
};

TEST_F(SelectAccountTest, OpensWithCreatingChosen)
{
    books_.AddAccount("1", "Bank", "Checking");
    books_.AddAccount("2", "Cash", "A purse");

    Ask("99", [](Form& form) {
        EXPECT_EQ(form.Name(), "frmSelectAccount");
        EXPECT_EQ(form.Caption(), "Select Account");
        EXPECT_EQ(The<Label>(form, "Label1").Caption(),
                  "The account that you are importing information for, cannot be determined. What "
                  "would you like to do?");
        EXPECT_EQ(The<OptionButton>(form, "optAccount(0)").Caption(), "Create a new account");
        EXPECT_EQ(The<OptionButton>(form, "optAccount(1)").Caption(), "Map to an existing account");
        EXPECT_EQ(The<Label>(form, "Label4").Caption(), "Description:");
        EXPECT_EQ(The<Label>(form, "Label2").Caption(), "Account type:");
        EXPECT_EQ(The<Label>(form, "Label3").Caption(), "Select which account:");
        EXPECT_EQ(The<Button>(form, "btnOK").Caption(), "OK");
        EXPECT_EQ(The<Button>(form, "btnCancel").Caption(), "Cancel");

        EXPECT_TRUE(The<OptionButton>(form, "optAccount(0)").Value());
        EXPECT_FALSE(The<OptionButton>(form, "optAccount(1)").Value());
        EXPECT_TRUE(The<OptionButton>(form, "optAccount(1)").Enabled());
        EXPECT_EQ(The<TextBox>(form, "txtDescription").Text(), "");
        EXPECT_THAT(Texts(The<ListBox>(form, "cmbAccountType")),
                    ElementsAre("Bank", "Cash", "Credit Card", "Investment"));
        EXPECT_EQ(The<ListBox>(form, "cmbAccountType").Text(), "Bank");
        EXPECT_THAT(Texts(The<ListBox>(form, "cmbAccountID")), ElementsAre("Checking", "A purse"));
        EXPECT_EQ(The<ListBox>(form, "cmbAccountID").Text(), "Checking");
    });

    EXPECT_EQ(books_.modal.shown, 1);
}

TEST_F(SelectAccountTest, TheChosenOptionEnablesItsFields)
{
    books_.AddAccount("1", "Bank", "Checking");

    Ask("99", [](Form& form) {
        EXPECT_TRUE(form.Find("txtDescription")->Enabled());
        EXPECT_TRUE(form.Find("cmbAccountType")->Enabled());
        EXPECT_FALSE(form.Find("cmbAccountID")->Enabled());

        The<OptionButton>(form, "optAccount(1)").Choose();
        EXPECT_FALSE(form.Find("txtDescription")->Enabled());
        EXPECT_FALSE(form.Find("cmbAccountType")->Enabled());
        EXPECT_TRUE(form.Find("cmbAccountID")->Enabled());

        The<OptionButton>(form, "optAccount(0)").Choose();
        EXPECT_TRUE(form.Find("txtDescription")->Enabled());
        EXPECT_FALSE(form.Find("cmbAccountID")->Enabled());
    });
}

TEST_F(SelectAccountTest, WithoutAccountsOnlyCreatingCanBeChosen)
{
    Ask("99", [](Form& form) {
        EXPECT_FALSE(form.Find("optAccount(1)")->Enabled());
        EXPECT_EQ(The<ListBox>(form, "cmbAccountID").Index(), -1);

        The<OptionButton>(form, "optAccount(1)").Choose();
        EXPECT_TRUE(The<OptionButton>(form, "optAccount(0)").Value());
    });
}

TEST_F(SelectAccountTest, CancelChangesNothing)
{
    const bool result = Ask("99", [](Form& form) {
        Describe(form, "Visa");
        Press(form, "btnCancel");
    });

    EXPECT_FALSE(result);
    EXPECT_EQ(identifier_, "99");
    EXPECT_THAT(Accounts(), IsEmpty());
}

TEST_F(SelectAccountTest, ANewAccountGetsTheStatementsNumber)
{
    const bool result = Ask("4111'2", [](Form& form) {
        Describe(form, "Visa's own");
        The<ListBox>(form, "cmbAccountType").Index(2);
        Press(form, "btnOK");
        EXPECT_FALSE(form.Visible());
    });

    EXPECT_TRUE(result);
    EXPECT_EQ(identifier_, "4111'2");
    EXPECT_THAT(Accounts(), ElementsAre("4111'2|Visa's own|Credit Card"));
}

TEST_F(SelectAccountTest, ANewAccountIsShownInTheTree)
{
    books_.AddAccount("1", "Bank", "Checking");

    Ask("I-1", [](Form& form) {
        Describe(form, "Shares");
        The<ListBox>(form, "cmbAccountType").Index(3);
        Press(form, "btnOK");
    });

    EXPECT_EQ(SelectedNode().text, "Shares");
    EXPECT_EQ(SelectedNode().tag, node_tag::OfAccount(vwInvestment, "I-1"));
    EXPECT_EQ(books_.window.View().View(), vwNetWorth);
}

TEST_F(SelectAccountTest, ADescriptionIsRequired)
{
    const bool result = Ask("99", [](Form& form) {
        Press(form, "btnOK");
        EXPECT_TRUE(form.Visible());
    });

    const FakeMessageBox::Box box = {"You must enter an account description.", 16,
                                     "Corvane Ledgerbook"};
    EXPECT_THAT(books_.messages.boxes, ElementsAre(box));
    EXPECT_FALSE(result);
    EXPECT_THAT(Accounts(), IsEmpty());
}

TEST_F(SelectAccountTest, ADescriptionGivenAfterTheRefusalIsTaken)
{
    const bool result = Ask("99", [](Form& form) {
        Press(form, "btnOK");
        Describe(form, "Visa");
        Press(form, "btnOK");
    });

    EXPECT_TRUE(result);
    EXPECT_THAT(Accounts(), ElementsAre("99|Visa|Bank"));
}

TEST_F(SelectAccountTest, ADescriptionMayRepeatAnother)
{
    books_.AddAccount("1", "Bank", "Visa");

    Ask("99", [](Form& form) {
        Describe(form, "Visa");
        Press(form, "btnOK");
    });

    EXPECT_THAT(Accounts(), ElementsAre("1|Visa|Bank", "99|Visa|Bank"));
}

TEST_F(SelectAccountTest, NewAccountsWithoutNumberGetTheNextNumber)
{
    for (const std::string expected : {"New Account", "New Account (2)", "New Account (3)"}) {
        EXPECT_TRUE(Ask("", [](Form& form) {
            Describe(form, "Mine");
            Press(form, "btnOK");
        }));

        EXPECT_EQ(identifier_, expected);
    }
    EXPECT_THAT(Accounts(), ElementsAre("New Account|Mine|Bank", "New Account (2)|Mine|Bank",
                                        "New Account (3)|Mine|Bank"));
}

TEST_F(SelectAccountTest, MappingGivesTheAccountTheStatementsNumber)
{
    books_.AddAccount("1", "Bank", "Checking");
    books_.AddAccount("2", "Credit Card", "Joe's Visa");

    const bool result = Ask("4111'2", [](Form& form) {
        Map(form, 1);
        Press(form, "btnOK");
    });

    EXPECT_TRUE(result);
    EXPECT_EQ(identifier_, "4111'2");
    EXPECT_THAT(Accounts(), ElementsAre("1|Checking|Bank", "4111'2|Joe's Visa|Credit Card"));
    EXPECT_EQ(SelectedNode().text, "Joe's Visa");
    EXPECT_EQ(SelectedNode().tag, node_tag::OfAccount(vwAccount, "4111'2"));
}

TEST_F(SelectAccountTest, MappingGivesEveryAccountOfTheDescriptionTheNumber)
{
    books_.AddAccount("1", "Bank", "Twin");
    books_.AddAccount("2", "Cash", "Twin");

    Ask("99", [](Form& form) {
        Map(form, 0);
        Press(form, "btnOK");
    });

    EXPECT_THAT(Accounts(), ElementsAre("99|Twin|Bank", "99|Twin|Cash"));
}

TEST_F(SelectAccountTest, MappingWithoutNumberGivesTheAccountsOwn)
{
    books_.AddAccount("1", "Bank", "Checking");
    books_.AddAccount("2", "Bank", "Twin's");
    books_.AddAccount("3", "Bank", "Twin's");
    const std::vector<std::string> before = Accounts();

    const bool result = Ask("", [](Form& form) {
        Map(form, 2);
        Press(form, "btnOK");
    });

    EXPECT_TRUE(result);
    EXPECT_EQ(identifier_, "2");
    EXPECT_EQ(Accounts(), before);
}

TEST_F(SelectAccountTest, CancelKeepsAnEmptyNumberEmpty)
{
    books_.AddAccount("1", "Bank", "Checking");

    EXPECT_FALSE(Ask("", [](Form& form) { Map(form, 0); }));

    EXPECT_EQ(identifier_, "");
}

TEST_F(SelectAccountTest, TheShownAccountStaysShownUnderItsNewNumber)
{
    books_.AddAccount("1", "Bank", "Checking");
    books_.window.View().AccountID("1");
    books_.window.View().View(vwAccount);

    Ask("99", [](Form& form) {
        Map(form, 0);
        Press(form, "btnOK");
    });

    EXPECT_EQ(books_.window.View().AccountID(), "99");
}

TEST_F(SelectAccountTest, AnotherShownAccountStays)
{
    books_.AddAccount("1", "Bank", "Checking");
    books_.AddAccount("2", "Bank", "Savings");
    books_.window.View().AccountID("2");
    books_.window.View().View(vwAccount);

    Ask("99", [](Form& form) {
        Map(form, 0);
        Press(form, "btnOK");
    });

    EXPECT_EQ(books_.window.View().AccountID(), "2");
}

TEST_F(SelectAccountTest, EnterAcceptsAndEscapeCancels)
{
    Ask("99", [](Form& form) {
        EXPECT_EQ(form.DefaultButton(), form.Find("btnOK"));
        EXPECT_EQ(form.CancelButton(), form.Find("btnCancel"));
    });
}

}  // namespace
}  // namespace clb
