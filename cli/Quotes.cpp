#include <iostream>
#include <memory>
#include <sstream>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "json/ValueJson.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

struct Holding {
    std::int32_t number = 0;
    std::string symbol;
    std::string name;
    Money lastPrice;
};

/// All holdings, in the order in which the update requests their prices.
std::vector<Holding> Holdings(clsDatabase& data)
{
    std::vector<Holding> holdings;
    Recordset rows;
    data.Fill(rows, "SELECT Sequence, StockSymbol, StockName, LastPrice FROM Investment", true);
    for (; !rows.AtEnd(); rows.MoveNext())
        holdings.push_back({ToLong(rows.Get("Sequence")), ToText(rows.Get("StockSymbol")),
                            ToText(rows.Get("StockName")), ToMoney(rows.Get("LastPrice"))});
    return holdings;
}

/// The holdings of the second list as they were in the first. Another program may have deleted
/// holdings meanwhile. A holding that it added is returned as it is.
std::vector<Holding> AsBefore(const std::vector<Holding>& before, const std::vector<Holding>& after)
{
    std::vector<Holding> matched = after;
    for (Holding& holding : matched)
        for (const Holding& former : before)
            if (former.number == holding.number)
                holding = former;
    return matched;
}

void PrintJson(std::ostream& out, const std::vector<Holding>& before,
               const std::vector<Holding>& after)
{
    Json rows = Json::array();
    for (std::size_t at = 0; at < after.size(); ++at)
        rows.push_back({{"StockSymbol", after[at].symbol},
                        {"StockName", after[at].name},
                        {"before", before[at].lastPrice.ToText()},
                        {"LastPrice", after[at].lastPrice.ToText()}});
    out << ToLine({{"holdings", rows}}) << '\n';
}

void PrintTable(std::ostream& out, const std::vector<Holding>& before,
                const std::vector<Holding>& after)
{
    Table table;
    table.AddColumn("Symbol", false);
    table.AddColumn("Name", false);
    table.AddColumn("Before", true);
    table.AddColumn("Last Price", true);
    table.AddColumn("Change", true);
    for (std::size_t at = 0; at < after.size(); ++at) {
        const Money change = after[at].lastPrice - before[at].lastPrice;
        table.AddRow({after[at].symbol, after[at].name, before[at].lastPrice.Grouped(),
                      after[at].lastPrice.Grouped(), change.IsZero() ? "" : change.Grouped()});
    }
    table.Print(out);
}

int Update(const FolderOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    clsDatabase& data = program.Window().Data();
    const std::vector<Holding> first = Holdings(data);
    program.Window().menus.Find(command_name::kUpdateQuotes)->Press();
    const std::vector<Holding> after = Holdings(data);
    const std::vector<Holding> before = AsBefore(first, after);
    std::ostringstream report;
    report.exceptions(std::ostream::badbit);  // too little memory must not cut it short
    if (options.json)
        PrintJson(report, before, after);
    else
        PrintTable(report, before, after);
    program.Finish();
    std::cout << report.view();
    return program.Messages().Refused() ? 1 : 0;
}

}  // namespace

void AddQuotes(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<FolderOptions>();
    Command command(app, "quotes",
                    "Fetch the holdings' last prices and print what changed; the service is the "
                    "settings file's QuoteService, else http://127.0.0.1:8271");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = Update(*options); });
}

}  // namespace clb
