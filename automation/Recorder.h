#pragma once
#include "app/frmController.h"
#include "automation/EventLog.h"

#include <vector>

namespace clb {

/// Logs what the main window's controls and its view tell: status texts, reloads, rebuilt trees,
/// the grid's painting and its ten events. Made before the window is loaded, so that each event is
/// logged as it was raised, ahead of what the program does about it. Controller and log are
/// borrowed and outlive the recorder.
class Recorder {
public:
    Recorder(frmController& controller, EventLog& log);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

private:
    void FollowWindow(frmController& controller);
    void FollowView(clsView& view);
    void FollowEdits(CVGrid& grid);
    void FollowFetches(CVGrid& grid);
    /// Logs the event unless it comes from showing what another program has written.
    void Log(Json event);
    void LogGrid(const char* name, Json arguments);

    frmController& controller_;
    EventLog& log_;
    std::vector<sigc::connection> connections_;
};

}  // namespace clb
