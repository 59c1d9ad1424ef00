#include "cli/FolderOptions.h"

#include "data/EmptyDatabase.h"
#include "platform/ProgramFolder.h"

namespace clb {

void AddHome(Command& command, FolderOptions& options)
{
    command
        .Take("--home", options.home,
              "Program folder, which holds db/clb.mdb (default: the program's own folder if it "
              "does, else the user's data folder)")
        .Placeholder("DIR")
        .Check(IsFolderName());
}

void AddJson(Command& command, FolderOptions& options)
{
    command.Flag("--json", options.json, "Print one JSON object instead of text");
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

TextCheck IsFolderName()
{
    return {[](const std::string& text) {
                return text.empty() ? std::string("the folder's name is empty") : std::string();
            },
            ""};
}

TextCheck IsFileName()
{
    return {[](const std::string& text) {
                return text.empty() ? std::string("the file's name is empty") : std::string();
            },
            ""};
}

TextCheck IsMonth()
{
    return {[](const std::string& text) {
                return ReadMonth(text) ? std::string() : "\"" + text + "\" is not a month YYYY-MM";
            },
            "YYYY-MM"};
}

std::string HomeFolder(const std::optional<std::string>& home)
{
    std::string folder = ProgramFolder(PlacesOf(home));
    RemoveProgramLeftovers(folder);
    return folder;
}

std::string OpenFolder(const std::optional<std::string>& home)
{
    std::string folder = HomeFolder(home);
    if (!home && IsUnused(folder))
        DeliverFolder(folder, EmptyDatabase());
    return folder;
}

}  // namespace clb
