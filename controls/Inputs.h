// The simple controls: texts, lists, buttons and the status bar.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Money.h"
#include "controls/Control.h"

namespace clb {

/// A fixed text that may be clicked.
class Label : public Control {
public:
    Label(std::string name, std::string caption);
    void Accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool TakesFocus() const override { return false; }
    [[nodiscard]] const std::string& Caption() const { return caption_; }
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
    void Accept(ControlVisitor& visitor) override;
    [[nodiscard]] const std::string& Text() const { return text_; }
    /// A different text raises TextChanged, even if the program wrote it, and drops the selection.
    void Text(const std::string& text);
    [[nodiscard]] bool Locked() const { return locked_; }
    void Locked(bool locked) { locked_ = locked; }

    /// Start (0-based) and number of the selected characters.
    [[nodiscard]] std::size_t SelectionStart() const { return selectionStart_; }
    [[nodiscard]] std::size_t SelectionLength() const { return selectionLength_; }
    [[nodiscard]] std::string SelectedText() const;
    void SelectAll();
    Event<void()> TextChanged() { return textChanged_; }

private:
    std::string text_;
    bool locked_ = false;
    std::size_t selectionStart_ = 0;
    std::size_t selectionLength_ = 0;
    sigc::signal<void()> textChanged_;
};

/// A drop-down list of texts, each with a number. One of them may be chosen.
class ListBox : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override;
    struct Item {
        std::string text;
        std::int32_t data = 0;
    };
    void Clear();
    void Add(const std::string& text, std::int32_t data = 0);
    [[nodiscard]] const std::vector<Item>& Items() const { return items_; }
    /// 0-based; -1 if nothing is chosen.
    [[nodiscard]] std::int32_t Index() const { return index_; }
    /// Chooses an item and raises Click, even if it is already chosen. -1 chooses nothing. Throws
    /// RuntimeError (InvalidCall) if there is no such item.
    void Index(std::int32_t index);
    /// Text of the chosen item; empty if nothing is chosen.
    [[nodiscard]] std::string Text() const;
    /// Number of the chosen item; 0 if nothing is chosen.
    [[nodiscard]] std::int32_t ItemData() const;
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
    void Accept(ControlVisitor& visitor) override;
    [[nodiscard]] const std::string& Caption() const { return caption_; }
    /// Presses the button, if it is enabled.
    void Press();
    Event<void()> Click() { return click_; }

private:
    std::string caption_;
    sigc::signal<void()> click_;
};

/// One of a group of options, of which one at a time is chosen.
class OptionButton : public Control {
public:
    OptionButton(std::string name, std::string caption);
    void Accept(ControlVisitor& visitor) override;
    [[nodiscard]] const std::string& Caption() const { return caption_; }
    [[nodiscard]] bool Value() const { return value_; }
    /// Raises Click and unchooses the other options of the group.
    void Choose();
    Event<void()> Click() { return click_; }

    /// Makes the options one group.
    static void Group(const std::vector<OptionButton*>& options);

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
    void Accept(ControlVisitor& visitor) override;
    /// How the box's text is read and written.
    struct Texts {
        /// Returns nothing for a text that is not a number.
        std::function<std::optional<Money>(const std::string& text)> read;
        std::function<std::string(Money value)> write;
    };
    /// Numbers by the fixed rule, see Money.
    static Texts PlainTexts();
    /// Sets the text box to step; it must outlive the spinner.
    void Attach(TextBox& buddy, Texts texts = PlainTexts());
    /// Adds the number to the box's value. Text that is not a number stays as it is.
    void Step(std::int32_t by);

private:
    TextBox* buddy_ = nullptr;
    Texts texts_;
};

/// The line at the bottom of the window, divided into panels.
class StatusBar : public Control {
public:
    StatusBar(std::string name, std::size_t panels);
    [[nodiscard]] bool TakesFocus() const override { return false; }
    /// 1-based panel.
    [[nodiscard]] const std::string& Panel(std::size_t index) const
    {
        return panels_.at(index - 1);
    }
    void Panel(std::size_t index, const std::string& text);
    /// Raised after a panel's text changed, with the panel's number.
    Event<void(std::size_t)> PanelChanged() { return panelChanged_; }

private:
    std::vector<std::string> panels_;
    sigc::signal<void(std::size_t)> panelChanged_;
};

}  // namespace clb
