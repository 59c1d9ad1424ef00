#pragma once
#include "base/Date.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

namespace clb {

/// Options that several commands share.
struct FolderOptions {
    std::optional<std::string> home;
    bool json = false;
};

/// --home, and --json where the command prints a result.
void AddHome(CLI::App& command, FolderOptions& options);
void AddJson(CLI::App& command, FolderOptions& options);

/// Takes any text but the empty one.
CLI::Validator IsFolderName();
CLI::Validator IsFileName();
/// Takes YYYY-MM only; checked while the command line is parsed.
CLI::Validator IsMonth();
/// "YYYY-MM".
std::string MonthText(Month month);
/// The month named so; nothing for other texts.
std::optional<Month> ReadMonth(const std::string& text);

/// The program folder to work on. One in the user's data folder gets the delivered database on
/// first use; others are left as they are.
std::string OpenFolder(const std::optional<std::string>& home);

}  // namespace clb
