#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/GridOutput.h"
#include "cli/Program.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

struct BudgetOptions : FolderOptions {
    std::optional<std::string> month;
};

Json BudgetJson(frmController& window)
{
    Money budgeted;
    Money actual;
    window.Data().CalcTotals(budgeted, actual);
    return {{"year", window.View().Year()},
            {"period", window.View().Period()},
            {"rows", GridJson(window.Grid)},
            {"budgeted", budgeted.ToText()},
            {"actual", actual.ToText()}};
}

void PrintBudget(const BudgetOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    if (options.month)
        program.ChooseMonth(ReadMonth(*options.month).value_or(Month{}));
    program.PressNode(node_tag::OfView(vwBudget));
    frmController& window = program.Window();
    if (options.json) {
        std::cout << ToLine(BudgetJson(window)) << '\n';
        return;
    }
    GridTable(window.Grid).Print(std::cout);
    std::cout << window.lblTotal.Caption() << ' ' << window.txtTotal.Text() << " / "
              << window.txtTotal2.Text() << '\n';
}

}  // namespace

void AddBudget(CLI::App& app, int&)
{
    auto options = std::make_shared<BudgetOptions>();
    Command command(app, "budget", "Print a month's budget and what was spent");
    command.Take("--month", options->month, "Month (default: the present one)").Check(IsMonth());
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { PrintBudget(*options); });
}

}  // namespace clb
