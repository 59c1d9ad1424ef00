#include <iostream>
#include <memory>

#include "automation/Automation.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "platform/Signals.h"
#include "platform/StandardStreams.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

struct AutomateOptions : FolderOptions {
    std::optional<std::string> now;
    std::string quoteService;
};

int Automate(const AutomateOptions& options)
{
    std::unique_ptr<IClock> clock = std::make_unique<SystemClock>();
    if (options.now)
        clock = std::make_unique<FixedClock>(Date::FromIso(*options.now).value_or(Date()));
    std::ios::sync_with_stdio(false);
    StandardInput input(EndingSignals::Descriptor());
    std::istream requests(&input);
    return RunAutomation(requests, std::cout,
                         {OpenFolder(options.home), *clock, options.quoteService}, nullptr);
}

}  // namespace

void AddAutomate(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<AutomateOptions>();
    Command command(app, "automate",
                    "Run the program without a window, driven by JSON requests on standard input");
    AddHome(command, *options);
    command.Take("--now", options->now, "Local time at which the clock is stopped")
        .Check({CheckMoment, "YYYY-MM-DDThh:mm:ss"});
    command
        .Take("--quote-service", options->quoteService,
              "Scheme, host and port of the quote service (default: the settings file's)")
        .Placeholder("URL");
    command.Run([options, &exitCode] { exitCode = Automate(*options); });
}

}  // namespace clb
