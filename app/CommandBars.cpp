#include "app/CommandBars.h"

#include "app/WindowCommands.h"
#include "app/frmController.h"
#include "base/Text.h"
#include "views/MenuNames.h"

namespace clb {

CommandBars::CommandBars(frmController& window) : window_(window)
{
    for (const WindowMenu& menu : WindowMenus()) {
        Menu& lines = window_.menus.Add(menu.name, menu.caption, menu.added);
        for (const WindowCommand& command : menu.commands) {
            MenuItem& line = lines.Add(command.name, CaptionOf(command));
            if (command.enabled != Enabled::Always)
                lines_.emplace_back(&line, command.enabled);
        }
    }
    for (const WindowButton& button : WindowButtons())
        window_.toolbar.Add(button.key, button.tip);
}

void CommandBars::Connect()
{
    for (const WindowMenu& menu : WindowMenus())
        for (const WindowCommand& command : menu.commands)
            if (command.run)
                window_.menus.Find(command.name)->Click().connect([this, &command] {
                    window_.Steps().Begin(PlainCaptionOf(command));
                    command.run(window_);
                });
    window_.toolbar.ButtonClick().connect([this](const std::string& key) { ButtonPressed(key); });
}

void CommandBars::ButtonPressed(const std::string& key)
{
    const WindowButton* const button = FindButton(key);
    if (!button || !window_.Grid.MayLoseFocus())
        return;
    window_.Steps().Begin(PlainCaptionOf(*button));
    button->run(window_);
}

void CommandBars::FollowHistory()
{
    History& history = window_.Steps();
    std::optional<Step> undo = history.NextToUndo();
    std::optional<Step> redo = history.NextToRedo();
    const bool ended = !undo && !history.EndedAt().empty();
    Name(command_name::kUndo, undo, ended ? " (not possible: tables were changed)" : "");
    Name(command_name::kRedo, redo);
    undo_ = std::move(undo);
    redo_ = std::move(redo);
    now_.forUndo = undo_.has_value();
    now_.forRedo = redo_.has_value();
    Enable();
}

/// The caption says what the command would do: "&Undo Delete Record". none is added if there is
/// nothing to do.
void CommandBars::Name(const char* command, const std::optional<Step>& step,
                       const std::string& none)
{
    std::string caption = CaptionOf(*FindCommand(command));
    if (!step)
        caption += none;
    else
        caption += " " + Replace(step->what, "&", "&&") +
                   (window_.Steps().IsOfAnother(*step) ? " (another program)" : "");
    window_.menus.Find(command)->Caption(caption);
}

void CommandBars::Enable(const EnabledNow& now)
{
    const bool undo = now_.forUndo;
    const bool redo = now_.forRedo;
    now_ = now;
    now_.forUndo = undo;
    now_.forRedo = redo;
    Enable();
}

void CommandBars::Enable()
{
    for (const auto& [line, place] : lines_)
        line->Enabled(now_.Has(place));
    for (const WindowButton& button : WindowButtons())
        if (button.enabled != Enabled::Always)
            window_.toolbar.ButtonEnabled(button.key, now_.Has(button.enabled));
}

}  // namespace clb
