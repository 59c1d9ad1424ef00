#include <filesystem>
#include <iostream>
#include <memory>

#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "data/AccountKind.h"
#include "export/ExportLosses.h"
#include "json/ValueJson.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

struct ExportOptions : FolderOptions {
    std::string account;
    std::string file;
    bool replace = false;
};

std::int32_t CountTransactions(clsDatabase& data, const FoundAccount& account)
{
    Recordset rows;
    data.Fill(rows,
              "SELECT COUNT( 1 ) AS [Count] FROM Trans WHERE AccountID = '" +
                  clsDatabase::ToSqlString(account.id) + "'",
              true);
    return ToLong(rows.Get("Count"));
}

void CheckAccount(const FoundAccount& account)
{
    if (!HasTransactions(account.type))
        throw RuntimeError(errors::InvalidCall, account.description +
                                                    " is not exported: only accounts of the types "
                                                    "Bank, Cash and Credit Card are.");
}

void ExportFile(const ExportOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    clsDatabase& data = program.Window().Data();
    const FoundAccount account = FindAccount(data, options.account);
    CheckAccount(account);
    if (!options.replace && std::filesystem::exists(options.file))
        throw RuntimeError(errors::FileAlreadyExists, "File already exists: " + options.file);
    program.PressAccount(account);
    program.Files().Choose(options.file);
    ExportLosses losses(account.id);
    program.Window().Export().Watch(&losses);
    program.Press(command_name::kExport);

    for (const std::string& line : losses.Lines())
        std::cerr << "Not coming back: " << Printable(line) << '\n';
    const std::int32_t exported = CountTransactions(data, account);
    if (options.json)
        std::cout << ToLine({{"file", options.file}, {"exported", exported}}) << '\n';
    else
        std::cout << "Exported " << exported
                  << (exported == 1 ? " transaction\n" : " transactions\n");
}

}  // namespace

void AddExport(CLI::App& app, int&)
{
    auto options = std::make_shared<ExportOptions>();
    Command command(app, "export",
                    "Write all transactions of an account as an OFX 1.02 statement file");
    command.Take("ACCOUNT", options->account, "Account number or description").Required();
    command.Take("FILE", options->file, "File to write; no extension is added")
        .Required()
        .Check(IsFileName());
    command.Flag("--replace", options->replace, "Replace the file if it is there already");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { ExportFile(*options); });
}

}  // namespace clb
