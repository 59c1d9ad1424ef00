// Menus and the toolbar.
#pragma once
#include <deque>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace clb {

/// One line of a menu: a command or a separator. In captions "&" precedes the access key.
class MenuItem : public Control {
public:
    /// A command; a caption "-" makes a separator.
    MenuItem(std::string name, std::string caption);
    [[nodiscard]] const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption);
    [[nodiscard]] bool Separator() const { return caption_ == "-"; }
    /// Runs the command, if it is enabled.
    void Press();
    Event<void()> Click() { return click_; }

private:
    std::string caption_;
    sigc::signal<void()> click_;
};

/// One menu of the menu bar with its lines in order.
class Menu : public Control {
public:
    /// added: see Added.
    Menu(std::string name, std::string caption, bool added = false);
    /// Whether the menu was added to those that the program has always had. Drivers list it after
    /// them, wherever it is shown.
    [[nodiscard]] bool Added() const { return added_; }
    [[nodiscard]] const std::string& Caption() const { return caption_; }
    MenuItem& Add(const std::string& name, const std::string& caption);
    [[nodiscard]] const std::deque<MenuItem>& Items() const { return items_; }
    std::deque<MenuItem>& Items() { return items_; }

private:
    std::string caption_;
    bool added_;
    std::deque<MenuItem> items_;
};

/// The menus of a window, from left to right.
class MenuBar : public Control {
public:
    using Control::Control;
    [[nodiscard]] bool TakesFocus() const override { return false; }
    Menu& Add(const std::string& name, const std::string& caption, bool added = false);
    std::deque<Menu>& Menus() { return menus_; }
    /// nullptr if no menu has such an item.
    MenuItem* Find(const std::string& item);

private:
    std::deque<Menu> menus_;
};

/// A row of buttons, each with a key of its own.
class Toolbar : public Control {
public:
    using Control::Control;
    [[nodiscard]] bool TakesFocus() const override { return false; }
    struct Button {
        std::string key;
        std::string tip;
        bool enabled = true;
    };
    void Add(const std::string& key, const std::string& tip);
    [[nodiscard]] const std::vector<Button>& Buttons() const { return buttons_; }
    /// nullptr if there is no such button.
    [[nodiscard]] const Button* Find(const std::string& key) const;
    /// Throws RuntimeError (ElementNotFound) for an unknown key.
    void ButtonEnabled(const std::string& key, bool enabled);
    /// Presses a button, if it is enabled.
    void Press(const std::string& key);
    Event<void(const std::string&)> ButtonClick() { return buttonClick_; }

private:
    std::vector<Button> buttons_;
    sigc::signal<void(const std::string&)> buttonClick_;
};

}  // namespace clb
