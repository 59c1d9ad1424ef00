#pragma once
#include "base/Date.h"
#include "cli/CommandLine.h"

#include <optional>
#include <string>

namespace clb {

/// Options that several commands share.
struct FolderOptions {
    std::optional<std::string> home;
    bool json = false;
};

/// --home, and --json where the command prints a result.
void AddHome(Command& command, FolderOptions& options);
void AddJson(Command& command, FolderOptions& options);

/// Takes any text but the empty one.
TextCheck IsFolderName();
TextCheck IsFileName();
/// Takes YYYY-MM only; checked while the command line is parsed.
TextCheck IsMonth();
/// "YYYY-MM".
std::string MonthText(Month month);
/// The month named so; nothing for other texts.
std::optional<Month> ReadMonth(const std::string& text);

/// The program folder to work on. One in the user's data folder gets the delivered database on
/// first use; others are left as they are.
std::string OpenFolder(const std::optional<std::string>& home);

}  // namespace clb
