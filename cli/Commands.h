#pragma once

namespace CLI {
class App;
}

namespace clb {

// The commands of the program clb, one file each. Each adds its subcommand; when that is the one
// called, it runs while the command line is parsed. exitCode is written then: 0 done, 1 refused or
// bad input; it outlives the parsing. Results go to standard output, messages to standard error.

void AddNew(CLI::App& app, int& exitCode);
void AddDemo(CLI::App& app, int& exitCode);
void AddSql(CLI::App& app, int& exitCode);
void AddAutomate(CLI::App& app, int& exitCode);
void AddAccounts(CLI::App& app, int& exitCode);
void AddNetWorth(CLI::App& app, int& exitCode);
void AddRegister(CLI::App& app, int& exitCode);
void AddBudget(CLI::App& app, int& exitCode);
void AddCopyBudget(CLI::App& app, int& exitCode);
void AddImport(CLI::App& app, int& exitCode);
void AddExport(CLI::App& app, int& exitCode);
void AddSplit(CLI::App& app, int& exitCode);
void AddMove(CLI::App& app, int& exitCode);
void AddOptions(CLI::App& app, int& exitCode);
void AddQuotes(CLI::App& app, int& exitCode);
void AddQuoteServer(CLI::App& app, int& exitCode);
void AddBackup(CLI::App& app, int& exitCode);
void AddRestore(CLI::App& app, int& exitCode);
void AddCheck(CLI::App& app, int& exitCode);

}  // namespace clb
