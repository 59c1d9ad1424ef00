// The commands of the program clb, one file each.
#pragma once

namespace CLI {
class App;
}

namespace clb {

// Each function adds one command to the command line. If that command is called, it runs while the
// command line is parsed, and it writes exitCode: 0 done, 1 refused or bad input,
// 2 wrong usage. exitCode is
// borrowed until then. Results go to standard output, messages to standard error.

void AddNew(CLI::App& app, int& exitCode);
void AddDemo(CLI::App& app, int& exitCode);
void AddSql(CLI::App& app, int& exitCode);
void AddAutomate(CLI::App& app, int& exitCode);
void AddAccounts(CLI::App& app, int& exitCode);
void AddNetWorth(CLI::App& app, int& exitCode);
void AddRegister(CLI::App& app, int& exitCode);
void AddFind(CLI::App& app, int& exitCode);
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
void AddHistory(CLI::App& app, int& exitCode);
void AddUndo(CLI::App& app, int& exitCode);
void AddRedo(CLI::App& app, int& exitCode);

}  // namespace clb
