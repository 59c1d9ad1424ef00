#pragma once
#include <functional>
#include <utility>

#include "ports/IMessageBox.h"

namespace clb {

/// Runs what an action of the user starts. An error that no handler caught is told in a message
/// box, then the program goes on. Whatever was written is made durable before the window is drawn
/// again.
class UserEvents {
public:
    /// messages is borrowed and outlives this.
    explicit UserEvents(IMessageBox& messages) : messages_(messages) {}

    /// What makes the changes durable, and what brings the window up to date afterwards.
    void Attach(std::function<void()> settle, std::function<void()> redraw);
    /// What to do before each outermost action. False: the grid's current row is gone, so an action
    /// on it is left out.
    void Before(std::function<bool()> prepare) { prepare_ = std::move(prepare); }
    /// What to do each time the outermost action is over.
    void WhenIdle(std::function<void()> idle) { idle_ = std::move(idle); }
    /// Whether an action is on its way.
    bool Running() const { return depth_ > 0; }
    /// False when the action ended with an error. Actions may start others, as a dialog does.
    bool Run(const std::function<void()>& action);
    /// The same for an action that works on the grid's current row.
    bool RunOnRow(const std::function<void()>& action);

private:
    bool Perform(const std::function<void()>& action, bool onRow);
    bool Report(const std::function<void()>& action);

    IMessageBox& messages_;
    std::function<void()> settle_;
    std::function<void()> redraw_;
    std::function<void()> idle_;
    std::function<bool()> prepare_;
    int depth_ = 0;
};

}  // namespace clb
