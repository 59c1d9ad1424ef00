// Options and checks that several commands share.
#pragma once
#include <optional>
#include <string>

#include "base/Date.h"
#include "cli/CommandLine.h"

namespace clb {

/// The options of most commands.
struct FolderOptions {
    std::optional<std::string> home;  ///< the program folder, if named
    bool json = false;                ///< print one JSON object
};

/// Adds --home.
void AddHome(Command& command, FolderOptions& options);
/// Adds --json.
void AddJson(Command& command, FolderOptions& options);

/// Both refuse an empty text only.
[[nodiscard]] TextCheck IsFolderName();
[[nodiscard]] TextCheck IsFileName();
/// Accepts YYYY-MM only.
[[nodiscard]] TextCheck IsMonth();
/// The month as YYYY-MM.
[[nodiscard]] std::string MonthText(Month month);
/// Reads YYYY-MM. Returns nothing for any other text.
[[nodiscard]] std::optional<Month> ReadMonth(const std::string& text);

/// The program folder to work on; home is the value of --home. Removes what earlier runs of the
/// program left in it. The folder need not hold a database.
[[nodiscard]] std::string HomeFolder(const std::optional<std::string>& home);
/// The same for a command that needs a database. On first use, the folder in the user's data folder
/// gets an empty database. Other folders keep the database that they have.
[[nodiscard]] std::string OpenFolder(const std::optional<std::string>& home);

}  // namespace clb
