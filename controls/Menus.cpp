#include "controls/Menus.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {

MenuItem::MenuItem(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption))
{
}

void MenuItem::Press()
{
    if (Enabled() && !Separator())
        click_.emit();
}

void MenuItem::Caption(const std::string& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    NotifyChanged();
}

Menu::Menu(std::string name, std::string caption, bool added)
    : Control(std::move(name)), caption_(std::move(caption)), added_(added)
{
}

MenuItem& Menu::Add(const std::string& name, const std::string& caption)
{
    return items_.emplace_back(name, caption);
}

Menu& MenuBar::Add(const std::string& name, const std::string& caption, bool added)
{
    return menus_.emplace_back(name, caption, added);
}

MenuItem* MenuBar::Find(const std::string& item)
{
    for (Menu& menu : menus_)
        for (MenuItem& line : menu.Items())
            if (line.Name() == item)
                return &line;
    return nullptr;
}

void Toolbar::Add(const std::string& key, const std::string& tip)
{
    buttons_.push_back({key, tip, true});
    NotifyChanged();
}

const Toolbar::Button* Toolbar::Find(const std::string& key) const
{
    const auto found = std::find_if(buttons_.begin(), buttons_.end(),
                                    [&key](const Button& button) { return button.key == key; });
    return found == buttons_.end() ? nullptr : &*found;
}

void Toolbar::ButtonEnabled(const std::string& key, bool enabled)
{
    const auto found = std::find_if(buttons_.begin(), buttons_.end(),
                                    [&key](const Button& button) { return button.key == key; });
    if (found == buttons_.end())
        throw RuntimeError(errors::ElementNotFound, "Element not found");
    if (found->enabled == enabled)
        return;
    found->enabled = enabled;
    NotifyChanged();
}

void Toolbar::Press(const std::string& key)
{
    const Button* button = Find(key);
    if (button && button->enabled)
        buttonClick_.emit(key);
}

}  // namespace clb
