// The menus and the toolbar of the main window, made from the table of its commands.
#pragma once
#include <utility>
#include <vector>

#include "controls/Menus.h"
#include "views/Enabled.h"

namespace clb {

class frmController;

/// Fills the menu bar and the toolbar with the window's commands, runs them and enables them.
class CommandBars {
public:
    /// Borrows the window, which outlives it. Its menus and toolbar are still empty.
    explicit CommandBars(frmController& window);

    /// From now on a chosen line or a pressed button runs its command.
    void Connect();
    /// Enables and disables the lines and buttons.
    void Enable(const EnabledNow& now);

private:
    void ButtonPressed(const std::string& key);

    frmController& window_;
    std::vector<std::pair<MenuItem*, Enabled>> lines_;  // those that are not always enabled
};

}  // namespace clb
