#include "desktop/UserEvents.h"

#include <exception>

#include "app/frmController.h"
#include "base/Interruption.h"

namespace clb {

void UserEvents::Attach(std::function<void()> settle, std::function<void()> redraw)
{
    settle_ = std::move(settle);
    redraw_ = std::move(redraw);
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
        Report([&] { rowThere = prepare_(); });
    bool done = (rowThere || !onRow) && Report(action);
    // What a command wrote that was broken off is not kept.
    if (settle_ && !Interruption::Asked())
        done = Report(settle_) && done;
    if (redraw_)
        redraw_();
    --depth_;
    if (idle_ && depth_ == 0)
        idle_();
    return done;
}

bool UserEvents::Report(const std::function<void()>& action)
{
    // The toolkit's event loop must not be left by an exception, so this is the last stop of all.
    try {
        action();
        return true;
    } catch (const Interrupted&) {
        return false;  // the program ends as soon as its loop goes on
    } catch (const std::exception& error) {
        messages_.Show(error.what(), box_style::Critical, frmController::Title);
        return false;
    }
}

}  // namespace clb
