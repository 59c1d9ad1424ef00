// The menus and the toolbar of the main window, made from the table of its commands.
#pragma once
#include <optional>
#include <utility>
#include <vector>

#include "controls/Menus.h"
#include "history/StepStore.h"
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
    /// Says in the captions what Undo and Redo would do, and enables them if there is something.
    /// Throws EngineError.
    void FollowHistory();
    /// The steps that the captions of Undo and Redo name; nothing if there is none.
    [[nodiscard]] const std::optional<Step>& NamedUndo() const { return undo_; }
    [[nodiscard]] const std::optional<Step>& NamedRedo() const { return redo_; }

private:
    void ButtonPressed(const std::string& key);
    void Enable();
    void Name(const char* command, const std::optional<Step>& step, const std::string& none = "");

    frmController& window_;
    EnabledNow now_;
    std::optional<Step> undo_;
    std::optional<Step> redo_;
    std::vector<std::pair<MenuItem*, Enabled>> lines_;  // those that are not always enabled
};

}  // namespace clb
