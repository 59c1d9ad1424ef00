// Shows the progress of a long command.
#pragma once
#include <sigc++/trackable.h>

#include <QElapsedTimer>
#include <QObject>

class QLabel;
class QProgressBar;
class QStatusBar;

namespace clb {

class WorkProgress;

/// Shows a bar and a short text in the second panel of the status bar while a long command runs.
/// The windows are repainted during the command, but take no input.
class WorkDisplay : public QObject, public sigc::trackable {
public:
    /// The model is borrowed and outlives the display; the widgets belong to the status bar.
    WorkDisplay(WorkProgress& progress, QStatusBar& bar);

    /// Repaints the windows if they were not repainted in the last 40 ms, and drops the user's
    /// input since then. It is cheap enough to be called often. Does nothing while no command runs.
    void KeepAlive();

private:
    void Show();
    void Paint();

    WorkProgress& progress_;
    QLabel* text_;
    QProgressBar* bar_;
    QElapsedTimer sinceBegin_;
    QElapsedTimer sincePaint_;
    bool painting_ = false;
};

}  // namespace clb
