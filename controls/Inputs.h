#pragma once
#include <cstddef>
#include <optional>
#include <vector>

#include "controls/Control.h"

namespace clb {

/// Fixed text; may be clicked.
class Label : public Control {
public:
    Label(std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption);
    void PressClick() { click_.emit(); }
    Event<void()> Click() { return click_; }

private:
    std::string caption_;
    sigc::signal<void()> click_;
};

/// One line of text that the user may type, unless it is locked.
class TextBox : public Control {
public:
    explicit TextBox(std::string name, std::string text = "");
    const std::string& Text() const { return text_; }
    /// A different text raises TextChanged, whoever wrote it; the selection is then dropped.
    void Text(const std::string& text);
    bool Locked() const { return locked_; }
    void Locked(bool locked) { locked_ = locked; }

    /// Selected characters, 0-based start and number.
    std::size_t SelectionStart() const { return selectionStart_; }
    std::size_t SelectionLength() const { return selectionLength_; }
    std::string SelectedText() const;
    void SelectAll();
    Event<void()> TextChanged() { return textChanged_; }

private:
    std::string text_;
    bool locked_ = false;
    std::size_t selectionStart_ = 0;
    std::size_t selectionLength_ = 0;
    sigc::signal<void()> textChanged_;
};

/// A drop-down list: texts with a number each, of which one may be chosen.
class ListBox : public Control {
public:
    using Control::Control;
    struct Item {
        std::string text;
        std::int32_t data = 0;
    };
    void Clear();
    void Add(const std::string& text, std::int32_t data = 0);
    const std::vector<Item>& Items() const { return items_; }
    /// 0-based; -1 when nothing is chosen.
    std::int32_t Index() const { return index_; }
    /// Chooses an item and raises Click, also for the item already chosen. -1 chooses nothing.
    /// Throws RuntimeError (InvalidCall) for other numbers without an item.
    void Index(std::int32_t index);
    /// Text of the chosen item; empty when nothing is chosen.
    std::string Text() const;
    /// Number of the chosen item; 0 when nothing is chosen.
    std::int32_t ItemData() const;
    Event<void()> Click() { return click_; }

private:
    std::vector<Item> items_;
    std::int32_t index_ = -1;
    sigc::signal<void()> click_;
};

/// A push button.
class Button : public Control {
public:
    Button(std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    /// Presses it; a disabled button does nothing.
    void Press();
    Event<void()> Click() { return click_; }

private:
    std::string caption_;
    sigc::signal<void()> click_;
};

/// One of a group of options: choosing one drops the others.
class OptionButton : public Control {
public:
    OptionButton(std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    bool Value() const { return value_; }
    /// Choosing raises Click and drops the other options of the group.
    void Choose();
    Event<void()> Click() { return click_; }

    /// Makes the options one group.
    static void Group(std::vector<OptionButton*> options);

private:
    void Drop();

    std::string caption_;
    bool value_ = false;
    std::vector<OptionButton*> group_;
    sigc::signal<void()> click_;
};

/// Arrows that step the number in a text box by 1.
class Spinner : public Control {
public:
    using Control::Control;
    /// The text box that is stepped; it must outlive the spinner.
    void Attach(TextBox& buddy) { buddy_ = &buddy; }
    /// Adds the number to the box's value. A text that is no number stays as it is.
    void Step(std::int32_t by);

private:
    TextBox* buddy_ = nullptr;
};

/// The line at the window's lower edge, divided into panels.
class StatusBar : public Control {
public:
    StatusBar(std::string name, std::size_t panels);
    /// 1-based panel.
    const std::string& Panel(std::size_t index) const { return panels_.at(index - 1); }
    void Panel(std::size_t index, const std::string& text);
    /// Raised after a panel's text became another one, with its number.
    Event<void(std::size_t)> PanelChanged() { return panelChanged_; }

private:
    std::vector<std::string> panels_;
    sigc::signal<void(std::size_t)> panelChanged_;
};

}  // namespace clb
