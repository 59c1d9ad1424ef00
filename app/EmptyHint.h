#pragma once
#include <optional>
#include <string>
#include <vector>

namespace clb {

class frmController;

/// What the window says where the grid has nothing to show, and the commands that lead on.
struct EmptyHint {
    /// A command by its menu item.
    struct Way {
        std::string caption;
        std::string item;
        bool operator==(const Way&) const = default;
    };
    std::string title;
    std::string text;
    std::vector<Way> ways;
    bool operator==(const EmptyHint&) const = default;
};

/// The hint for what the window shows now, with those ways whose commands are enabled. Nothing
/// while there are rows, or while the user is entering the first one.
std::optional<EmptyHint> HintFor(frmController& window);

}  // namespace clb
