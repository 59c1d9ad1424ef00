// Runs the actions of the user.
#pragma once
#include <exception>
#include <functional>
#include <utility>

#include "ports/IMessageBox.h"

namespace clb {

/// Runs what an action of the user starts. A RuntimeError that no handler caught is shown in a
/// message box, and the program goes on. What was written is made durable before the window is
/// drawn again. Any other exception, such as std::bad_alloc, breaks off the whole command: it is
/// taken back with the actions within it, and a message box says so.
class UserEvents {
public:
    /// messages is borrowed and outlives this.
    explicit UserEvents(IMessageBox& messages) : messages_(messages) {}

    /// Sets what makes the changes durable, what updates the window afterwards, and what takes back
    /// a command that was broken off.
    void Attach(std::function<void()> settle, std::function<void()> redraw,
                std::function<void()> abandon = {});
    /// Sets what runs before each outermost action. If it returns false, the grid's current row is
    /// gone, and an action on that row does not run.
    void Before(std::function<bool()> prepare) { prepare_ = std::move(prepare); }
    /// Sets what runs each time the outermost action has ended.
    void WhenIdle(std::function<void()> idle) { idle_ = std::move(idle); }
    /// Whether an action is running.
    [[nodiscard]] bool Running() const { return depth_ > 0; }
    /// Whether the action runs within another one, in a dialog that it has opened.
    [[nodiscard]] bool Nested() const { return depth_ > 1; }
    /// Returns false if the action ended with an error. An action may start others, as a dialog
    /// does.
    bool Run(const std::function<void()>& action);
    /// The same for an action that works on the grid's current row.
    bool RunOnRow(const std::function<void()>& action);
    /// Whether the command was broken off by an action within it.
    [[nodiscard]] bool BrokenOff() const { return broken_ != nullptr; }
    /// Throws again what broke off the command, so that the outer action of a dialog ends too. Does
    /// nothing if nothing was broken off.
    void PassOn() const;
    /// Sets what runs when an action is broken off, such as closing a dialog. Returns what was set
    /// before.
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
