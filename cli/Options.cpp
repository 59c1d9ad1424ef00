#include "cli/Options.h"

#include "data/EmptyDatabase.h"
#include "platform/ProgramFolder.h"

namespace clb {

void AddHome(CLI::App& command, FolderOptions& options)
{
    command
        .add_option("--home", options.home,
                    "Program folder, which holds db/clb.mdb (default: the program's own folder if "
                    "it does, else the user's data folder)")
        ->type_name("DIR")
        ->check(IsFolderName());
}

void AddJson(CLI::App& command, FolderOptions& options)
{
    command.add_flag("--json", options.json, "Print one JSON object instead of text");
}

std::string MonthText(Month month)
{
    return Date::Of(month.year, month.period, 1).value_or(Date()).ToIso().substr(0, 7);
}

std::optional<Month> ReadMonth(const std::string& text)
{
    if (text.size() != 7)
        return std::nullopt;
    const auto first = Date::FromIso(text + "-01");
    if (!first)
        return std::nullopt;
    return Month{first->Year(), first->Month()};
}

CLI::Validator IsFolderName()
{
    return CLI::Validator(
        [](const std::string& text) {
            return text.empty() ? std::string("the folder's name is empty") : std::string();
        },
        "");
}

CLI::Validator IsFileName()
{
    return CLI::Validator(
        [](const std::string& text) {
            return text.empty() ? std::string("the file's name is empty") : std::string();
        },
        "");
}

CLI::Validator IsMonth()
{
    return CLI::Validator(
        [](const std::string& text) {
            return ReadMonth(text) ? std::string() : "\"" + text + "\" is no month YYYY-MM";
        },
        "YYYY-MM");
}

std::string OpenFolder(const std::optional<std::string>& home)
{
    const std::string folder = ProgramFolder(PlacesOf(home));
    if (!home && IsUnused(folder))
        DeliverFolder(folder, EmptyDatabase());
    return folder;
}

}  // namespace clb
