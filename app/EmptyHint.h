// The hint in an empty grid.
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace clb {

class frmController;

/// Instead of a menu item: shows the latest month in which the account has transactions.
inline constexpr const char* kLatestMonth = "latest month";
/// Instead of a menu item: opens a made-up household in a window of its own.
inline constexpr const char* kDemo = "demo";

/// The text that the window shows in an empty grid, and commands that help further.
struct EmptyHint {
    /// A command by its menu item, or kLatestMonth, or kDemo.
    struct Way {
        std::string caption;
        std::string item;
        std::string icon = {};         ///< name of its drawing; empty: none
        std::string explanation = {};  ///< a short sentence; empty: none
        bool operator==(const Way&) const = default;
    };
    std::string title;
    std::string text;
    std::vector<Way> ways;
    bool greets = false;  ///< the window greets: its ways are large, with drawing and explanation
    bool operator==(const EmptyHint&) const = default;
};

/// Returns the hint for what the window shows now, with the commands that are enabled. New Record
/// is always among them: the window also runs it on the empty line. Returns nothing if there are
/// rows, or if the user is entering the first one. A book without any account and transaction gets
/// a greeting, but not under automation.
std::optional<EmptyHint> HintFor(frmController& window);
/// Shows the latest month in which the shown account has transactions. Throws EngineError.
void ShowLatestMonth(frmController& window);

}  // namespace clb
