#include "import/frmSelectAccount.h"

#include "base/Product.h"
#include "controls/Tree.h"
#include "data/AccountKind.h"
#include "data/NoticedBalances.h"
#include "data/clsDatabase.h"
#include "views/NodeTag.h"
#include "views/clsView.h"

namespace clb {

frmSelectAccount::frmSelectAccount(clsDatabase& database, clsView& view, Tree& tree,
                                   IModalHost& host, IMessageBox& messages)
    : database_(database),
      view_(view),
      tree_(tree),
      host_(host),
      messages_(messages),
      form_("frmSelectAccount", "Select Account"),
      Label1("Label1",
             "The account that you are importing information for, cannot be determined. What would "
             "you like to do?"),
      optCreate_("optAccount(0)", "Create a new account"),
      Label4("Label4", "Description:"),
      txtDescription("txtDescription"),
      Label2("Label2", "Account type:"),
      cmbAccountType("cmbAccountType"),
      optMap_("optAccount(1)", "Map to an existing account"),
      Label3("Label3", "Select which account:"),
      cmbAccountID("cmbAccountID"),
      btnOK("btnOK", "OK"),
      btnCancel("btnCancel", "Cancel")
{
    const std::initializer_list<Control*> controls = {
        &Label1,  &optCreate_, &Label4,       &txtDescription, &Label2,   &cmbAccountType,
        &optMap_, &Label3,     &cmbAccountID, &btnOK,          &btnCancel};
    for (Control* control : controls)
        form_.Add(*control);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
    OptionButton::Group({&optCreate_, &optMap_});

    optCreate_.Click().connect([this] { EnableFields(); });
    optMap_.Click().connect([this] { EnableFields(); });
    btnOK.Click().connect([this] { AcceptClicked(); });
    btnCancel.Click().connect([this] { form_.Hide(); });
}

bool frmSelectAccount::ShowDialog(std::string& accountID)
{
    accountID_ = accountID;
    hasID_ = !accountID.empty();
    result_ = false;
    Load();
    form_.ShowModal(host_);
    if (result_ && !hasID_)
        accountID = accountID_;
    return result_;
}

void frmSelectAccount::Load()
{
    txtDescription.Text("");
    cmbAccountType.Clear();
    for (const std::string& type : ImportableTypes())
        cmbAccountType.Add(type);
    cmbAccountType.Index(0);
    ListAccounts();
    optCreate_.Choose();
    ShowProposal();
}

void frmSelectAccount::ShowProposal()
{
    const auto choose = [](ListBox& list, const std::string& text) {
        for (std::size_t item = 0; item < list.Items().size(); ++item)
            if (!text.empty() && list.Items()[item].text == text) {
                list.Index(static_cast<std::int32_t>(item));
                return true;
            }
        return false;
    };
    if (!proposal_.question.empty())
        Label1.Caption(proposal_.question);
    txtDescription.Text(proposal_.description);
    choose(cmbAccountType, proposal_.type);
    const bool maps = choose(cmbAccountID, proposal_.existing);
    if (maps)
        optMap_.Choose();
    if (!proposal_.question.empty())
        form_.Focus(maps ? static_cast<Control&>(cmbAccountID) : txtDescription);
}

void frmSelectAccount::ListAccounts()
{
    cmbAccountID.Clear();
    Recordset accounts;
    database_.Fill(accounts, "SELECT Description FROM Account", true);
    for (; !accounts.AtEnd(); accounts.MoveNext())
        cmbAccountID.Add(ToText(accounts.Get("Description")));
    accounts.Close();

    const bool any = !cmbAccountID.Items().empty();
    if (any)
        cmbAccountID.Index(0);
    optMap_.Enabled(any);
}

void frmSelectAccount::EnableFields()
{
    const bool creating = optCreate_.Value();
    txtDescription.Enabled(creating);
    cmbAccountType.Enabled(creating);
    cmbAccountID.Enabled(!creating);
}

void frmSelectAccount::AcceptClicked()
{
    if (!(optCreate_.Value() ? CreateAccount() : MapAccount()))
        return;
    result_ = true;
    form_.Hide();
}

bool frmSelectAccount::CreateAccount()
{
    if (txtDescription.Text().empty()) {
        messages_.Show("You must enter an account description.", box_style::Critical,
                       product::kTitle);
        return false;
    }
    database_.Lock();
    if (hasID_ && NumberTaken()) {
        ShowInTree();
        return true;
    }
    if (accountID_.empty())
        accountID_ = NewIdentifier();
    Recordset accounts;
    database_.Fill(accounts, "SELECT AccountID, Description, Type FROM Account", false);
    accounts.AddNew();
    accounts.Set("AccountID", accountID_);
    accounts.Set("Description", txtDescription.Text());
    accounts.Set("Type", cmbAccountType.Text());
    accounts.Update();
    accounts.Close();
    ShowInTree();
    return true;
}

bool frmSelectAccount::MapAccount()
{
    if (cmbAccountID.Index() < 0)
        return false;
    database_.Lock();
    if (hasID_ && NumberTaken())
        return Refuse("Another program has meanwhile added an account with the number " +
                      accountID_ + ". Please cancel and import the file again.");
    if (!ListedAccountIsThere())
        return Refuse("Another program has meanwhile deleted the account " + cmbAccountID.Text() +
                      ". Please choose another one.");
    if (const std::string why = WhyNotMapped(); !why.empty())
        return Refuse(why);
    if (hasID_)
        MapToStatement();
    else
        MapToExisting();
    return true;
}

bool frmSelectAccount::Refuse(const std::string& why)
{
    messages_.Show(why, box_style::Exclamation, product::kTitle);
    return false;
}

/// Whether another program has meanwhile added an account with the statement's number.
bool frmSelectAccount::NumberTaken()
{
    const Connection::Untraced untraced(database_.Database());
    return database_.RowExists("Account",
                               "AccountID = '" + clsDatabase::ToSqlString(accountID_) + "'");
}

bool frmSelectAccount::ListedAccountIsThere()
{
    const Connection::Untraced untraced(database_.Database());
    return database_.RowExists(
        "Account", "Description = '" + clsDatabase::ToSqlString(cmbAccountID.Text()) + "'");
}

/// Why the chosen account cannot take the statement; empty if it can.
std::string frmSelectAccount::WhyNotMapped()
{
    if (!proposal_.refuses)
        return {};
    const Connection::Untraced untraced(database_.Database());
    return proposal_.refuses(cmbAccountID.Text());
}

/// The account numbers that the mapping changes.
std::vector<std::string> frmSelectAccount::FormerNumbers()
{
    Connection& connection = database_.Database();
    const Connection::Untraced untraced(connection);
    std::vector<std::string> numbers;
    Recordset accounts = connection.Execute("SELECT AccountID FROM Account WHERE Description = '" +
                                            clsDatabase::ToSqlString(cmbAccountID.Text()) + "'");
    for (; !accounts.AtEnd(); accounts.MoveNext())
        numbers.push_back(ToText(accounts.Get("AccountID")));
    return numbers;
}

void frmSelectAccount::MapToStatement()
{
    const std::vector<std::string> former = FormerNumbers();
    database_.Execute("UPDATE Account SET AccountID = '" + clsDatabase::ToSqlString(accountID_) +
                      "' WHERE Description = '" + clsDatabase::ToSqlString(cmbAccountID.Text()) +
                      "'");
    for (const std::string& number : former)
        noticed_balances::FollowAccount(database_.Database(), number, accountID_);
    ShowInTree();
    FollowShownAccount();
}

void frmSelectAccount::MapToExisting()
{
    Recordset accounts;
    database_.Fill(accounts,
                   "SELECT AccountID FROM Account WHERE Description = '" +
                       clsDatabase::ToSqlString(cmbAccountID.Text()) + "'",
                   true);
    accountID_ = ToText(accounts.Get("AccountID"));
    accounts.Close();
}

std::string frmSelectAccount::NewIdentifier()
{
    const std::string base = "New Account";
    std::string candidate = base;
    for (int n = 2; database_.RowExists("Account", "AccountID = '" + candidate + "'"); ++n)
        candidate = base + " (" + std::to_string(n) + ")";
    return candidate;
}

void frmSelectAccount::ShowInTree()
{
    view_.BuildTree();
    for (const AccountKind& kind : kAccountKinds) {
        const std::int32_t node =
            view_.FindTreeNodeByTag(node_tag::OfAccount(kind.view, accountID_));
        if (node > 0)
            return tree_.Select(node);
    }
}

/// If the shown account is no longer in the tree and the mapped account has the same kind, the
/// mapping changed the number of the shown account. The view then continues with the new number.
void frmSelectAccount::FollowShownAccount()
{
    if (!view_.Definition().ofAccount)
        return;
    const auto listed = [this](const std::string& account) {
        return view_.FindTreeNodeByTag(node_tag::OfAccount(view_.View(), account)) != 0;
    };
    if (!listed(view_.AccountID()) && listed(accountID_))
        view_.AccountID(accountID_);
}

}  // namespace clb
