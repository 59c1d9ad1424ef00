// The commands of the main window: one table that the menus, the toolbar, their keys and pictures,
// and the list of keys in the manual follow.
//
// A new command is one line in WindowCommands.cpp, besides what it does.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "views/Enabled.h"

namespace clb {

class frmController;

/// Runs a command on the main window.
using CommandAction = void (*)(frmController& window);

/// One line of a menu: a command, or a separator, which has a name and nothing else.
struct WindowCommand {
    const char* name;               ///< the menu item's name
    const char* caption = nullptr;  ///< use CaptionOf; nullptr: a separator
    const char* key = "";           ///< such as "Ctrl+I", "Del" or "F5; F6"; empty: none
    const char* icon = "";          ///< file name of the drawing, without ".svg"; empty: none
    Enabled enabled = Enabled::Always;
    /// A row in edit is saved first. If it cannot be saved, the command does not run.
    bool savesRow = true;
    /// Works on the grid's current row. If another program has deleted that row, the command does
    /// not run, because another row is current then.
    bool onRow = false;
    CommandAction run = nullptr;
};

/// One menu with its lines.
struct WindowMenu {
    const char* name;
    const char* caption;
    std::span<const WindowCommand> commands;
    bool added = false;  ///< see Menu::Added
};

/// One button of the toolbar. A row in edit is always saved first.
struct WindowButton {
    const char* key;  ///< names the button, and is its text
    const char* tip;
    const char* shortcut = "";  ///< a key of the button's own; empty: none
    const char* icon = "";      ///< as of a command
    bool separated = false;     ///< a separator is before it
    Enabled enabled = Enabled::Always;
    bool onRow = false;  ///< as of a command
    CommandAction run = nullptr;
};

/// The menus from left to right.
[[nodiscard]] std::span<const WindowMenu> WindowMenus();
/// The buttons from left to right.
[[nodiscard]] std::span<const WindowButton> WindowButtons();

/// nullptr if no menu item has the name.
[[nodiscard]] const WindowCommand* FindCommand(std::string_view name);
/// nullptr if no button has the key.
[[nodiscard]] const WindowButton* FindButton(std::string_view key);

/// The caption as a text: without the letter's mark and without "...".
[[nodiscard]] std::string PlainCaptionOf(const WindowCommand& command);
/// The same of the command that the button runs; the tip of a button that runs no command.
[[nodiscard]] std::string PlainCaptionOf(const WindowButton& button);
/// The caption as a menu item has it: "&" precedes the access key; "-" is a separator.
[[nodiscard]] std::string CaptionOf(const WindowCommand& command);

}  // namespace clb
