#include "desktop/input/UserEvents.h"

#include <new>
#include <string>

#include "app/frmController.h"
#include "base/Interruption.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "data/ErrorText.h"

namespace clb {

void UserEvents::Attach(std::function<void()> settle, std::function<void()> redraw,
                        std::function<void()> abandon)
{
    settle_ = std::move(settle);
    redraw_ = std::move(redraw);
    abandon_ = std::move(abandon);
}

std::function<void()> UserEvents::WhenBroken(std::function<void()> close)
{
    return std::exchange(whenBroken_, std::move(close));
}

bool UserEvents::Run(const std::function<void()>& action)
{
    return Perform(action, false);
}

bool UserEvents::RunOnRow(const std::function<void()>& action)
{
    return Perform(action, true);
}

bool UserEvents::Perform(const std::function<void()>& action, bool onRow)
{
    bool rowThere = true;
    if (++depth_ == 1 && prepare_)
        rowThere = Report([&] { rowThere = prepare_(); }) && rowThere;
    bool done = !BrokenOff() && (rowThere || !onRow) && Report(action);
    // A command that a signal interrupted is not kept.
    if (settle_ && !BrokenOff() && !Interruption::Asked())
        done = Report(settle_) && done;
    if (redraw_)
        Draw();
    --depth_;
    if (depth_ == 0 && BrokenOff())
        TellBroken();
    if (idle_ && depth_ == 0)
        idle_();
    return done;
}

void UserEvents::PassOn() const
{
    if (BrokenOff())
        std::rethrow_exception(broken_);
}

// No exception may reach the toolkit's event loop, so these functions catch everything.

bool UserEvents::Report(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const RuntimeError& error) {
        Tell(error.what());
    } catch (...) {
        BreakOff();
    }
    return false;
}

void UserEvents::Draw()
{
    try {
        redraw_();
    } catch (const RuntimeError& error) {
        Tell(error.what());
    } catch (...) {
        return;  // no memory to draw now; the next action draws the window
    }
}

void UserEvents::BreakOff() noexcept
{
    broken_ = std::current_exception();
    for (const auto* const consequence : {&abandon_, &whenBroken_}) {
        try {
            if (*consequence)
                (*consequence)();
        } catch (...) {
            continue;  // the command is reported as broken off in any case
        }
    }
}

void UserEvents::TellBroken()
{
    try {
        std::rethrow_exception(std::exchange(broken_, nullptr));
    } catch (const Interrupted&) {
        return;  // the program ends when its loop continues
    } catch (const std::bad_alloc&) {
        Tell(kNoMemory);
    } catch (const std::exception& error) {
        Tell((std::string(error.what()) + "\n\n" + kNothingKept).c_str());
    } catch (...) {
        Tell(kNothingKept);
    }
}

void UserEvents::Tell(const char* text) noexcept
{
    try {
        messages_.Show(text, box_style::Critical, product::kTitle);
    } catch (...) {
        return;  // not even a box can be shown
    }
}

}  // namespace clb
