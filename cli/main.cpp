#include <unistd.h>

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

#include "base/Interruption.h"
#include "base/Product.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "data/ErrorText.h"
#include "platform/Signals.h"
#include "platform/StandardStreams.h"

namespace {

constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

int Run(int argc, char** argv)
{
    CLI::App app(
        std::string(clb::product::kTitle) + ", the personal-finance program, on the command line",
        "clb");
    app.require_subcommand(1);
    app.set_version_flag("--version", clb::product::TitleAndVersion());
    app.failure_message(CLI::FailureMessage::simple);
    int exitCode = 0;
    for (const auto add :
         {clb::AddNew,      clb::AddDemo,   clb::AddAccounts,    clb::AddNetWorth,
          clb::AddRegister, clb::AddFind,   clb::AddBudget,      clb::AddCopyBudget,
          clb::AddImport,   clb::AddExport, clb::AddSplit,       clb::AddMove,
          clb::AddOptions,  clb::AddQuotes, clb::AddQuoteServer, clb::AddBackup,
          clb::AddRestore,  clb::AddCheck,  clb::AddHistory,     clb::AddUndo,
          clb::AddRedo,     clb::AddSql,    clb::AddAutomate})
        add(app, exitCode);
    try {
        app.parse(clb::LastFirst(argc, argv));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUsage;
    }
    return exitCode;
}

constexpr char kNoMemory[] = "clb: There is not enough memory.\n";

[[noreturn]] void EndForMemory()
{
    [[maybe_unused]] const ssize_t written =
        ::write(STDERR_FILENO, kNoMemory, sizeof kNoMemory - 1);
    ::_exit(kRefused);
}

/// Runs before the constructors of global objects. Nobody catches what they throw, and without
/// memory not even the exception can be made, so the program would be aborted.
[[gnu::constructor(101)]] void EndForMemoryUntilMain()
{
    std::set_new_handler(&EndForMemory);
}

void Report(const std::string& sentence)
{
    std::cerr << "clb: " << sentence << '\n';
}

int RunReported(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const clb::Interrupted&) {
        clb::EndBySignal();
    } catch (const std::bad_alloc&) {
        std::cerr << kNoMemory;  // no std::string here: it may need memory
        return kRefused;
    } catch (const std::exception& error) {
        Report(clb::ErrorText(error));
        return kRefused;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    std::set_new_handler(nullptr);
    clb::PrepareProcess();
    const clb::EndingSignals signals(clb::BreakOff::Anywhere);
    const int exitCode = RunReported(argc, argv);
    // The command's effects stay even if its output cannot be written.
    const std::string unwritten = clb::FinishOutput();
    if (!unwritten.empty())
        Report(unwritten);
    if (clb::Interruption::Asked())
        clb::EndBySignal();
    return exitCode == 0 && !unwritten.empty() ? kRefused : exitCode;
}
