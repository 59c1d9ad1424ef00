// The line that says what a command has done.
#pragma once
#include <functional>
#include <string>

#include "controls/Control.h"

namespace clb {

/// A line that says what a command has done, with a button that does the reverse or shows more. It
/// is there from Show to Close and takes no room otherwise.
class ResultBar : public Control {
public:
    using Control::Control;
    [[nodiscard]] bool TakesFocus() const override { return false; }

    /// Says this now. caption is the button's, which is not there if it is empty; action is what it
    /// does.
    void Show(std::string text, std::string caption, std::function<void()> action);
    void Close();
    [[nodiscard]] bool Shown() const { return !text_.empty(); }
    /// Empty if the bar is not shown.
    [[nodiscard]] const std::string& Text() const { return text_; }
    [[nodiscard]] const std::string& ButtonCaption() const { return caption_; }
    /// Does what the button does, if the bar is shown.
    void Press();

private:
    std::string text_;
    std::string caption_;
    std::function<void()> action_;
};

}  // namespace clb
