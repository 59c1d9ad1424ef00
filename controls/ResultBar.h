// The line that says what a command has done.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace clb {

/// A line that says what a command has done, with buttons that do the reverse or show more. It is
/// there from Show to Close and takes no room otherwise.
class ResultBar : public Control {
public:
    struct Action {
        std::string caption;
        std::function<void()> run;
    };

    using Control::Control;
    [[nodiscard]] bool TakesFocus() const override { return false; }

    /// Says this now, with a button for each action.
    void Show(std::string text, std::vector<Action> actions);
    void Close();
    [[nodiscard]] bool Shown() const { return !text_.empty(); }
    /// Empty if the bar is not shown.
    [[nodiscard]] const std::string& Text() const { return text_; }
    [[nodiscard]] const std::vector<Action>& Actions() const { return actions_; }
    /// Does what this button does, from 0; nothing if there is no such button.
    void Press(std::size_t button);

private:
    std::string text_;
    std::vector<Action> actions_;
};

}  // namespace clb
