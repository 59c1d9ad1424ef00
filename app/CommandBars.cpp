#include "app/CommandBars.h"

#include "app/WindowCommands.h"
#include "app/frmController.h"

namespace clb {

CommandBars::CommandBars(frmController& window) : window_(window)
{
    for (const WindowMenu& menu : WindowMenus()) {
        Menu& lines = window_.menus.Add(menu.name, menu.caption);
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
    window_.Steps().Begin(button->tip);
    button->run(window_);
}

void CommandBars::Enable(const EnabledNow& now)
{
    for (const auto& [line, place] : lines_)
        line->Enabled(now.Has(place));
    for (const WindowButton& button : WindowButtons())
        if (button.enabled != Enabled::Always)
            window_.toolbar.ButtonEnabled(button.key, now.Has(button.enabled));
}

}  // namespace clb
