#include "app/frmOptions.h"

#include "app/clsIni.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kBankUrl = "BankUrl";

/// The statement that sets an account's flag. It writes only a row whose flag changes.
std::string Inclusion(const std::string& accountID, bool included)
{
    const std::string include = included ? "TRUE" : "FALSE";
    return "UPDATE Account SET BudgetInclude = " + include + " WHERE AccountID = '" +
           clsDatabase::ToSqlString(accountID) + "' AND NOT BudgetInclude = " + include;
}

}  // namespace

frmOptions::frmOptions(clsDatabase& database, IModalHost& host, std::string settings)
    : database_(database),
      host_(host),
      settings_(std::move(settings)),
      form_("frmOptions", "Options"),
      lblBankUrl("lblBankUrl", "Bank web site:"),
      txtBankUrl("txtBankUrl"),
      lblAccounts("lblAccounts", "Accounts that count in the budget:"),
      grdAccounts("grdAccounts", {"Include", "Description", "Account #"}),
      btnOK("btnOK", "OK"),
      btnCancel("btnCancel", "Cancel")
{
    for (Control* control : std::initializer_list<Control*>{&lblBankUrl, &txtBankUrl, &lblAccounts,
                                                            &grdAccounts, &btnOK, &btnCancel})
        form_.Add(*control);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
    btnOK.Click().connect([this] {
        Store();
        form_.Hide();
    });
    btnCancel.Click().connect([this] { form_.Hide(); });
}

void frmOptions::ShowDialog()
{
    Load();
    form_.Focus(txtBankUrl);
    form_.ShowModal(host_);
}

void frmOptions::Load()
{
    clsIni ini;
    ini.INIFile(settings_);
    loadedUrl_ = ini.GetString(kSection, kBankUrl);
    txtBankUrl.Text(loadedUrl_);
    // Investments and loans never take part in the budget.
    loadedAt_ = database_.WritesElsewhere();
    Recordset accounts;
    database_.Fill(accounts,
                   "select BudgetInclude, Description, AccountID from Account where Type in "
                   "('Bank','Cash','Credit Card')",
                   true);
    for (; !accounts.AtEnd(); accounts.MoveNext())
        grdAccounts.Add({accounts.Get(0), accounts.Get(1), accounts.Get(2)});
    for (const auto& row : grdAccounts.Rows())
        loaded_.push_back(row[0]);
}

void frmOptions::Store()
{
    StoreBankUrl();
    database_.Lock();
    // All flags are decided before the first one is written.
    std::vector<bool> includes;
    for (std::size_t at = 0; at < grdAccounts.Rows().size(); ++at)
        includes.push_back(Include(at));
    for (std::size_t at = 0; at < grdAccounts.Rows().size(); ++at) {
        const auto& row = grdAccounts.Rows()[at];
        database_.Execute(Inclusion(ToText(row[2]), includes[at]));
    }
}

/// If the user did not change the address, keeps the one that another program may have set
/// meanwhile.
void frmOptions::StoreBankUrl()
{
    clsIni ini;
    ini.INIFile(settings_);
    const bool typed = txtBankUrl.Text() != loadedUrl_;
    ini.WriteString(kSection, kBankUrl,
                    typed ? txtBankUrl.Text() : ini.GetString(kSection, kBankUrl));
}

/// The flag to store for the account in the row.
bool frmOptions::Include(std::size_t row)
{
    const Value& wanted = grdAccounts.Rows()[row][0];
    if (wanted != loaded_[row] || database_.WritesElsewhere() == loadedAt_)
        return wanted == Value{true};
    const Connection::Untraced untraced(database_.Database());
    Recordset stored;
    database_.Fill(stored,
                   "SELECT BudgetInclude FROM Account WHERE AccountID = '" +
                       clsDatabase::ToSqlString(ToText(grdAccounts.Rows()[row][2])) + "'",
                   true);
    return (stored.Empty() ? wanted : stored.Get(0)) == Value{true};
}

}  // namespace clb
