// The dialog Options.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/CheckList.h"
#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

class clsDatabase;

/// The dialog "Options". It sets the address of the bank's web site, and which accounts count in
/// the budget.
class frmOptions {
public:
    /// `settings` is the path of the settings file. Borrows the store and the host; they outlive
    /// the dialog.
    frmOptions(clsDatabase& database, IModalHost& host, std::string settings);

    /// Shows the dialog. OK stores the settings.
    void ShowDialog();

private:
    void Load();
    void Store();
    void StoreBankUrl();
    bool Include(std::size_t row);

    clsDatabase& database_;
    IModalHost& host_;
    std::string settings_;
    std::string loadedUrl_;
    std::vector<Value> loaded_;   // the flags when they were listed
    std::uint64_t loadedAt_ = 0;  // clsDatabase::WritesElsewhere at that time
    Form form_;
    Label lblBankUrl;
    TextBox txtBankUrl;
    Label lblAccounts;
    CheckList grdAccounts;
    Button btnOK;
    Button btnCancel;
};

}  // namespace clb
