// The command line.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"

namespace clb {

/// The options of the command line.
struct StartOptions {
    std::optional<std::string> home;  ///< program folder
    std::optional<Date> now;          ///< the clock stands at this local time
    std::string quoteService;         ///< scheme, host and port; empty: the settings file's
    std::string picture;              ///< file for a picture of the window; empty: none
    std::string print;                ///< HTML file to print, and nothing else; empty: none
    std::string pdf;                  ///< with print: the file to print to without asking
    std::optional<Date> dailyBackup;  ///< make this day's backup, and nothing else
    bool automate = false;
    bool untilPainted = false;       ///< end once the window is painted: what a start takes
    std::vector<std::string> files;  ///< statements to import
};

/// Reads the command line. It answers --help, --version and mistakes itself: it then sets
/// `exitCode`, and the program ends with it.
StartOptions ReadStartOptions(int argc, char** argv, std::optional<int>& exitCode);

}  // namespace clb
