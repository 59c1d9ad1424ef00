#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/GridOutput.h"
#include "cli/Piece.h"
#include "cli/Program.h"
#include "data/ViewColumns.h"

namespace clb {
namespace {

struct RegisterOptions : FolderOptions {
    std::string account;
    std::optional<std::string> month;
    bool numbers = false;
};

/// The columns that identify a transaction and its piece, if they are wanted and the view has them.
std::vector<std::int32_t> Numbers(frmController& window, bool asked)
{
    if (!asked || !window.View().Definition().transactions)
        return {};
    return {Register::Sequence, Register::SubSequence};
}

Json RegisterJson(frmController& window, const FoundAccount& account,
                  const std::vector<std::int32_t>& numbers)
{
    Money total;
    Money unused;
    window.Data().CalcTotals(total, unused);
    return {
        {"account",
         {{"AccountID", account.id}, {"Description", account.description}, {"Type", account.type}}},
        {"year", window.View().Year()},
        {"period", window.View().Period()},
        {"rows", GridJson(window.Grid, numbers)},
        {"total", total.ToText()}};
}

/// The number of the first account that has a register. Returns an empty text if there is none.
std::string FirstRegister(clsDatabase& data)
{
    Recordset accounts;
    data.Fill(accounts,
              "SELECT AccountID FROM Account WHERE Type IN ('Bank', 'Cash', 'Credit Card') "
              "ORDER BY Type, Description",
              true);
    return accounts.Empty() ? std::string() : ToText(accounts.Get("AccountID"));
}

void PrintRegister(const RegisterOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    frmController& window = program.Window();
    const FoundAccount account = FindAccount(
        window.Data(), options.account.empty() ? FirstRegister(window.Data()) : options.account);
    if (options.month)
        program.ChooseMonth(ReadMonth(*options.month).value_or(Month{}));
    program.PressAccount(account);
    const std::vector<std::int32_t> numbers = Numbers(window, options.numbers);
    if (options.json) {
        std::cout << ToLine(RegisterJson(window, account, numbers)) << '\n';
        return;
    }
    std::cout << account.description << ", " << window.cmbPeriod.Text() << ' '
              << window.txtYear.Text() << '\n';
    GridTable(window.Grid, numbers).Print(std::cout);
    std::cout << window.lblTotal.Caption() << ' ' << window.txtTotal.Text() << '\n';
}

}  // namespace

void AddRegister(CLI::App& app, int&)
{
    auto options = std::make_shared<RegisterOptions>();
    Command command(app, "register",
                    "Print an account's transactions of a month, or its holdings or loans");
    command.Take(
        "ACCOUNT", options->account,
        "Account number or description (default: the first bank, cash or credit-card account)");
    command.Take("--month", options->month, "Month (default: the present one)").Check(IsMonth());
    command.Flag("--numbers", options->numbers,
                 "Print the numbers of transactions and pieces too, as split and move take them");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { PrintRegister(*options); });
}

}  // namespace clb
