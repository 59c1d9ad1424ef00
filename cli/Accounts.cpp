#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/GridOutput.h"
#include "cli/Program.h"

namespace clb {
namespace {

/// Prints what the program shows at its start: all accounts and their sum.
void PrintAccounts(const FolderOptions& options, bool totals)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    frmController& window = program.Window();
    if (options.json) {
        Json printed{{"accounts", GridJson(window.Grid)}};
        Money opening;
        Money current;
        window.Data().CalcTotals(opening, current);
        if (totals)
            printed.update({{"opening", opening.ToText()}, {"current", current.ToText()}});
        std::cout << ToLine(printed) << '\n';
        return;
    }
    Table table = GridTable(window.Grid);
    if (totals)
        table.AddRow(
            {window.lblTotal.Caption(), "", "", window.txtTotal.Text(), window.txtTotal2.Text()});
    table.Print(std::cout);
}

void AddCommand(CLI::App& app, const char* name, const char* description, bool totals)
{
    auto options = std::make_shared<FolderOptions>();
    Command command(app, name, description);
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, totals] { PrintAccounts(*options, totals); });
}

}  // namespace

void AddAccounts(CLI::App& app, int&)
{
    AddCommand(app, "accounts", "List the accounts with their balances", false);
}

void AddNetWorth(CLI::App& app, int&)
{
    AddCommand(app, "networth", "List the accounts and their sum", true);
}

}  // namespace clb
