#include "app/frmOptions.h"

#include "app/clsIni.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kBankUrl = "BankUrl";

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
    txtBankUrl.Text(ini.GetString(kSection, kBankUrl));
    // Investments and loans never take part in the budget.
    Recordset accounts;
    database_.Fill(accounts,
                   "select BudgetInclude, Description, AccountID from Account where Type in "
                   "('Bank','Cash','Credit Card')",
                   true);
    for (; !accounts.AtEnd(); accounts.MoveNext())
        grdAccounts.Add({accounts.Get(0), accounts.Get(1), accounts.Get(2)});
}

void frmOptions::Store()
{
    clsIni ini;
    ini.INIFile(settings_);
    ini.WriteString(kSection, kBankUrl, txtBankUrl.Text());
    for (const auto& row : grdAccounts.Rows()) {
        const std::string include = row[0] == Value{true} ? "TRUE" : "FALSE";
        // Only rows whose flag really changes are touched.
        database_.Execute("UPDATE Account SET BudgetInclude = " + include + " WHERE AccountID = '" +
                          clsDatabase::ToSqlString(ToText(row[2])) +
                          "' AND NOT BudgetInclude = " + include);
    }
}

}  // namespace clb
