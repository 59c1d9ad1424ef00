#include "cli/Commands.h"
#include "data/Trouble.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

namespace {

constexpr int refused = 1;
constexpr int wrongUsage = 2;

int Run(int argc, char** argv)
{
    CLI::App app("Corvane Ledgerbook, the personal-finance program, on the command line", "clb");
    app.require_subcommand(1);
    app.set_version_flag("--version", "Corvane Ledgerbook " CLB_VERSION);
    app.failure_message(CLI::FailureMessage::simple);
    int exitCode = 0;
    for (const auto add :
         {clb::AddNew, clb::AddDemo, clb::AddAccounts, clb::AddNetWorth, clb::AddRegister,
          clb::AddBudget, clb::AddCopyBudget, clb::AddImport, clb::AddExport, clb::AddSplit,
          clb::AddMove, clb::AddOptions, clb::AddQuotes, clb::AddQuoteServer, clb::AddBackup,
          clb::AddRestore, clb::AddCheck, clb::AddSql, clb::AddAutomate})
        add(app, exitCode);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrongUsage;
    }
    return exitCode;
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::cerr << "clb: There is not enough memory.\n";  // a longer text may need some
        return refused;
    } catch (const std::exception& error) {
        std::cerr << "clb: " << clb::TroubleText(error) << '\n';
        return refused;
    }
}
