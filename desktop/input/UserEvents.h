#pragma once
#include <exception>
#include <functional>
#include <utility>

#include "ports/IMessageBox.h"

namespace clb {

/// Runs what an action of the user starts. A RuntimeError that no handler caught is told in a
/// message box, then the program goes on. Whatever was written is made durable before the window is
/// drawn again. Any other exception, such as std::bad_alloc, breaks the whole command off: it is
/// taken back, the actions within it included, and the box says so.
class UserEvents {
public:
    /// messages is borrowed and outlives this.
    explicit UserEvents(IMessageBox& messages) : messages_(messages) {}

    /// What makes the changes durable, what brings the window up to date afterwards, and what takes
    /// back a command that was broken off.
    void Attach(std::function<void()> settle, std::function<void()> redraw,
                std::function<void()> abandon = {});
    /// What to do before each outermost action. False: the grid's current row is gone, so an action
    /// on it is left out.
    void Before(std::function<bool()> prepare) { prepare_ = std::move(prepare); }
    /// What to do each time the outermost action is over.
    void WhenIdle(std::function<void()> idle) { idle_ = std::move(idle); }
    /// Whether an action is on its way.
    [[nodiscard]] bool Running() const { return depth_ > 0; }
    /// False when the action ended with an error. Actions may start others, as a dialog does.
    bool Run(const std::function<void()>& action);
    /// The same for an action that works on the grid's current row.
    bool RunOnRow(const std::function<void()>& action);
    /// Whether the command was broken off by an action within it.
    [[nodiscard]] bool BrokenOff() const { return broken_ != nullptr; }
    /// Ends the outer action as well, for a dialog whose action broke the command off. Does nothing
    /// otherwise.
    void PassOn() const;
    /// What to do when an action is broken off: a dialog closes. Returns what was set before.
    std::function<void()> WhenBroken(std::function<void()> close);

private:
    bool Perform(const std::function<void()>& action, bool onRow);
    bool Report(const std::function<void()>& action);
    void Draw();
    void BreakOff() noexcept;
    void TellBroken();
    void Tell(const char* text) noexcept;

    IMessageBox& messages_;
    std::function<void()> settle_;
    std::function<void()> redraw_;
    std::function<void()> idle_;
    std::function<void()> abandon_;
    std::function<void()> whenBroken_;
    std::exception_ptr broken_;  // what broke the running command off
    std::function<bool()> prepare_;
    int depth_ = 0;
};

}  // namespace clb
