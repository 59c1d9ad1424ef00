#include <iostream>
#include <memory>

#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "json/ValueJson.h"
#include "views/MenuNames.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

struct CopyBudgetOptions : FolderOptions {
    std::string month;
};

std::int32_t CountLines(clsDatabase& data, Month month)
{
    Recordset rows;
    data.Fill(rows,
              "SELECT COUNT( 1 ) AS [Count] FROM Budget WHERE Year = " +
                  std::to_string(month.year) + " AND Period = " + std::to_string(month.period),
              true);
    return ToLong(rows.Get("Count"));
}

std::string Report(const CopyBudgetOptions& options, Month source, Month target, std::int32_t lines)
{
    if (options.json)
        return ToLine({{"from", MonthText(source)}, {"to", MonthText(target)}, {"copied", lines}});
    return "Copied " + std::to_string(lines) + (lines == 1 ? " budget line" : " budget lines") +
           " from " + MonthText(source) + " to " + MonthText(target);
}

void CopyBudget(const CopyBudgetOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    clsDatabase& data = program.Window().Data();
    const Month target = ReadMonth(options.month).value_or(Month{});
    const Month source = target.Previous();
    const std::int32_t lines = CountLines(data, source);
    if (lines == 0)
        throw RuntimeError(errors::ElementNotFound,
                           "There is no budget to copy in " + MonthText(source) + ".");
    program.ChooseMonth(target);
    program.PressNode(node_tag::OfView(vwBudget));
    program.Press(command_name::kCopy);
    const std::string report = Report(options, source, target, lines);
    program.Finish();
    std::cout << report << '\n';
}

}  // namespace

void AddCopyBudget(CLI::App& app, int&)
{
    auto options = std::make_shared<CopyBudgetOptions>();
    Command command(app, "copy-budget",
                    "Make a month's budget the same as that of the month before");
    command.Take("MONTH", options->month, "Month to copy into").Required().Check(IsMonth());
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { CopyBudget(*options); });
}

}  // namespace clb
