// Reads the command line of the program with the window.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"

namespace clb {

/// The options of the command line.
struct StartOptions {
    std::optional<std::string> home;  ///< program folder
    std::optional<Date> now;          ///< the clock is stopped at this local time
    std::string quoteService;         ///< scheme, host and port; empty: the settings file's
    std::string picture;              ///< file for a picture of the window; empty: none
    std::string print;                ///< HTML file to print, doing nothing else; empty: none
    std::string pdf;                  ///< with print: the file to print to without asking
    std::optional<Date> dailyBackup;  ///< make this day's backup and do nothing else
    bool demo = false;                ///< show the demonstration instead of a book
    bool automate = false;
    bool untilPainted = false;       ///< end after the window is painted, to measure a start
    std::vector<std::string> files;  ///< statements to import
};

/// Reads the command line. It answers --help, --version and mistakes itself: it then sets
/// `exitCode`, and the program ends with it.
StartOptions ReadStartOptions(int argc, char** argv, std::optional<int>& exitCode);

}  // namespace clb
