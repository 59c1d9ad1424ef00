// Logs what the program's controls do.
#pragma once
#include <vector>

#include "app/frmController.h"
#include "automation/EventLog.h"

namespace clb {

/// Logs the events of the main window's controls and view: status texts, reloads, rebuilt trees,
/// the grid's painting and its ten events. It must be made before the window is loaded: its
/// handlers then run before the program's, so an event is logged before what the program does in
/// response. Controller and log are borrowed and outlive the recorder.
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
    /// Logs the event, unless it was raised only to show what another program has written.
    void Log(Json event);
    void LogGrid(const char* name, Json arguments);

    frmController& controller_;
    EventLog& log_;
    std::vector<sigc::connection> connections_;
};

}  // namespace clb
