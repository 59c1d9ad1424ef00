// The dialog Select Account.
#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;
class clsView;
class Tree;

/// What is known of a statement's account before the user chooses one.
struct AccountProposal {
    std::string question;     ///< empty: the dialog's own
    std::string description;  ///< of a new account
    std::string type;         ///< of a new account, if it is one that the dialog lists
    std::string existing;     ///< description of the account to map to; empty: none is proposed
    /// Why the account of a description cannot be mapped to; empty texts: it can.
    std::function<std::string(const std::string& description)> refuses{};
};

/// The dialog "Select Account". It asks for the account of a statement whose own account is not
/// known.
class frmSelectAccount {
public:
    /// Borrows all of them; they outlive the dialog.
    frmSelectAccount(clsDatabase& database, clsView& view, Tree& tree, IModalHost& host,
                     IMessageBox& messages);

    /// Returns true if an account for the import exists now. An empty accountID is then set to the
    /// number of the chosen or created account.
    bool ShowDialog(std::string& accountID);

    /// What the dialog shows at first.
    void Propose(AccountProposal proposal) { proposal_ = std::move(proposal); }

    Form& Window() { return form_; }

private:
    void Load();
    void ListAccounts();
    void ShowProposal();
    void EnableFields();
    void AcceptClicked();
    bool CreateAccount();
    bool MapAccount();
    std::vector<std::string> FormerNumbers();
    void MapToStatement();
    void MapToExisting();
    bool Refuse(const std::string& why);
    bool NumberTaken();
    bool ListedAccountIsThere();
    std::string WhyNotMapped();
    std::string NewIdentifier();
    void ShowInTree();
    void FollowShownAccount();

    clsDatabase& database_;
    clsView& view_;
    Tree& tree_;
    IModalHost& host_;
    IMessageBox& messages_;

    Form form_;
    Label Label1;
    OptionButton optCreate_;
    Label Label4;
    TextBox txtDescription;
    Label Label2;
    ListBox cmbAccountType;
    OptionButton optMap_;
    Label Label3;
    ListBox cmbAccountID;
    Button btnOK;
    Button btnCancel;

    AccountProposal proposal_;
    std::string accountID_;
    bool hasID_ = false;
    bool result_ = false;
};

}  // namespace clb
