#pragma once
#include <sigc++/trackable.h>

#include <QElapsedTimer>
#include <QObject>

class QLabel;
class QProgressBar;
class QStatusBar;

namespace clb {

class WorkProgress;

/// The second panel of the status bar: a bar and a few words while a long command runs. Until the
/// command ends the windows are painted again and again, but take no input.
class WorkDisplay : public QObject, public sigc::trackable {
public:
    /// The model is borrowed and outlives the display; the widgets belong to the status bar.
    WorkDisplay(WorkProgress& progress, QStatusBar& bar);

    /// Paints what is to be painted, when the last time is long enough ago; drops what the user did
    /// meanwhile. Made to be called often. Does nothing while no command runs.
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
