#include "desktop/start/StartOptions.h"

#include <CLI/CLI.hpp>

#include "base/Product.h"
#include "platform/SystemClock.h"

namespace clb {

namespace {

std::string CheckDay(const std::string& text)
{
    const auto day = Date::FromIso(text);
    return day && day->ToIso() == text ? std::string() : "\"" + text + "\" is no day YYYY-MM-DD";
}

}  // namespace

StartOptions ReadStartOptions(int argc, char** argv, std::optional<int>& exitCode)
{
    StartOptions options;
    std::string now;
    std::string day;
    CLI::App app(std::string(product::kTitle) + ", personal finances in one window", "ledgerbook");
    app.set_version_flag("--version", product::TitleAndVersion());
    app.add_option("--home", options.home,
                   "Program folder, which holds db/clb.mdb (default: the program's own folder if "
                   "it does, else the user's data folder)")
        ->type_name("DIR");
    app.add_flag("--automate", options.automate,
                 "Driven by requests: one JSON object a line on standard input");
    auto* demo =
        app.add_flag("--demo", options.demo,
                     "Show a made-up household, new at each start, instead of your own book");
    app.add_option("--now", now, "The clock stands at this local time")
        ->type_name("YYYY-MM-DDThh:mm:ss")
        ->check(CheckMoment);
    app.add_option("--quote-service", options.quoteService,
                   "Scheme, host and port of the quote service")
        ->type_name("URL");
    app.add_option("--picture", options.picture,
                   "Write a picture of the window to the file, then exit")
        ->type_name("FILE");
    app.add_option("files", options.files, "Statement files to import")->type_name("FILE");
    app.add_flag("--until-painted", options.untilPainted)->group("");
    auto* print =
        app.add_option("--print", options.print, "Preview an HTML file and print it, then exit")
            ->type_name("FILE");
    app.add_option("--pdf", options.pdf, "With --print: write a PDF file instead of asking")
        ->type_name("FILE")
        ->needs(print);
    for (const char* other : {"--home", "--automate", "--picture", "--print"})
        demo->excludes(app.get_option(other));
    // Only the program itself uses this option, so the help does not list it.
    app.add_option("--daily-backup", day, "Make the day's backup of the database, then exit")
        ->type_name("YYYY-MM-DD")
        ->check(CheckDay)
        ->group("");
    try {
        app.parse(argc, argv);
        if (!day.empty())
            options.dailyBackup = Date::FromIso(day);
        if (!now.empty())
            options.now = Date::FromIso(now);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error);
    }
    return options;
}

}  // namespace clb
