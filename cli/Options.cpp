#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>

#include "app/clsIni.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "controls/CheckList.h"
#include "controls/ControlVisitor.h"
#include "data/AccountKind.h"
#include "json/ValueJson.h"
#include "user/FormUser.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

constexpr std::size_t kLongestAddress = 99;

struct OptionsToSet : FolderOptions {
    std::optional<std::string> bankUrl;
    std::vector<std::string> count;
    std::vector<std::string> noCount;

    [[nodiscard]] bool Change() const { return bankUrl || !count.empty() || !noCount.empty(); }
};

/// The columns of the dialog's list.
enum AccountColumn : std::size_t { Counts, Description, Number };

/// An account in the dialog's list.
struct ListedAccount {
    std::string id;
    std::string description;
    bool counts = false;  ///< in the budget
};

/// Works the options dialog: sets the given options and records what the dialog shows.
class OptionsDialog : public IModalHost {
public:
    // What to set.
    std::optional<std::string> address;
    std::vector<std::string> count;    ///< numbers of accounts to tick
    std::vector<std::string> noCount;  ///< numbers of accounts to untick
    bool accept = false;               ///< close with OK instead of Cancel

    // What the dialog shows then.
    std::string shownAddress;
    std::vector<ListedAccount> accounts;

    void Run(Form& form) override
    {
        FormUser user(form);
        if (address)
            user.Set("txtBankUrl", *address);
        const CheckList& list = *As<CheckList>(form.Find("grdAccounts"));
        for (std::size_t at = 0; at < list.Rows().size(); ++at)
            Tick(user, static_cast<std::int32_t>(at) + 1, ToText(list.Rows()[at][Number]));
        shownAddress = As<TextBox>(form.Find("txtBankUrl"))->Text();
        for (const auto& row : list.Rows())
            accounts.push_back(
                {ToText(row[Number]), ToText(row[Description]), row[Counts] == Value{true}});
        user.Press(accept ? "btnOK" : "btnCancel");
    }

private:
    static bool Names(const std::vector<std::string>& numbers, const std::string& account)
    {
        return std::find(numbers.begin(), numbers.end(), account) != numbers.end();
    }
    void Tick(FormUser& user, std::int32_t row, const std::string& account)
    {
        for (const bool ticked : {true, false})
            if (Names(ticked ? count : noCount, account))
                user.Check(row, ticked);
    }
};

/// The numbers of the named accounts. Throws RuntimeError if one of them never counts.
std::vector<std::string> Numbers(clsDatabase& data, const std::vector<std::string>& names)
{
    std::vector<std::string> numbers;
    for (const std::string& name : names) {
        const FoundAccount account = FindAccount(data, name);
        if (!HasTransactions(account.type))
            throw RuntimeError(errors::InvalidCall,
                               account.description +
                                   " never counts in the budget: only accounts of the types Bank, "
                                   "Cash and Credit Card do.");
        numbers.push_back(account.id);
    }
    return numbers;
}

void Prepare(OptionsDialog& dialog, clsDatabase& data, const OptionsToSet& options)
{
    if (options.bankUrl && Length(*options.bankUrl) > kLongestAddress)
        throw RuntimeError(errors::InvalidCall, "The address has more than 99 characters.");
    dialog.address = options.bankUrl;
    dialog.count = Numbers(data, options.count);
    dialog.noCount = Numbers(data, options.noCount);
    for (const std::string& account : dialog.count)
        if (std::find(dialog.noCount.begin(), dialog.noCount.end(), account) !=
            dialog.noCount.end())
            throw RuntimeError(errors::InvalidCall,
                               "The account " + account + " can only count or not count.");
    dialog.accept = options.Change();
}

void PrintJson(std::ostream& out, const OptionsDialog& dialog)
{
    Json accounts = Json::array();
    for (const ListedAccount& account : dialog.accounts)
        accounts.push_back({{"AccountID", account.id},
                            {"Description", account.description},
                            {"BudgetInclude", account.counts}});
    out << ToLine({{"bankUrl", dialog.shownAddress}, {"accounts", accounts}}) << '\n';
}

void Print(std::ostream& out, const OptionsDialog& dialog)
{
    out << "Bank web site: "
        << (dialog.shownAddress.empty() ? "(none)" : Printable(dialog.shownAddress)) << "\n\n";
    Table table;
    table.AddColumn("Account #", false);
    table.AddColumn("Description", false);
    table.AddColumn("In the budget", false);
    for (const ListedAccount& account : dialog.accounts)
        table.AddRow({account.id, account.description, account.counts ? "yes" : "no"});
    table.Print(out);
}

/// Throws RuntimeError if the address was not stored: writing the settings reports no errors.
void RequireStored(const frmController& window, const OptionsToSet& options)
{
    clsIni ini;
    ini.INIFile(window.SettingsFile());
    if (options.bankUrl && ini.GetString("Settings", "BankUrl") != *options.bankUrl)
        throw RuntimeError(errors::PathAccess,
                           "The address was not stored. Look whether it is one line and whether " +
                               window.SettingsFile() + " can be written.");
}

void ShowOptions(const OptionsToSet& options)
{
    OptionsDialog dialog;
    Program program(OpenFolder(options.home), dialog);
    Prepare(dialog, program.Window().Data(), options);
    program.Press(command_name::kOptions);
    std::ostringstream report;
    report.exceptions(std::ostream::badbit);  // too little memory must not cut it short
    if (options.json)
        PrintJson(report, dialog);
    else
        Print(report, dialog);
    program.Finish();
    RequireStored(program.Window(), options);
    std::cout << report.view();
}

}  // namespace

void AddOptions(CLI::App& app, int&)
{
    auto options = std::make_shared<OptionsToSet>();
    Command command(app, "options", "Print the options; with options to set, set them first");
    command.Take("--bank-url", options->bankUrl, "Address of the bank's web site")
        .Placeholder("URL");
    command
        .Take("--count", options->count,
              "Account, by number or description, that counts in the budget; may be repeated")
        .Placeholder("ACCOUNT")
        .Repeatable();
    command
        .Take("--no-count", options->noCount,
              "Account that does not count in the budget; may be repeated")
        .Placeholder("ACCOUNT")
        .Repeatable();
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { ShowOptions(*options); });
}

}  // namespace clb
