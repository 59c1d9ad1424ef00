// Imports statement files that are dropped or named.
#pragma once
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace clb {

class frmController;
class MainWindow;
class UserEvents;

/// Takes statement files that arrive without the import command being chosen: dropped on the
/// window, or named at the start or by a second start. Imports all that wait as one command, as
/// soon as no other command runs and no dialog is open.
class IncomingFiles : public QObject {
public:
    /// All arguments are borrowed and outlive this.
    IncomingFiles(frmController& controller, MainWindow& window, UserEvents& events);

    /// Takes paths. If the row in edit cannot be saved, the result bar says that nothing was
    /// imported, and offers to try again.
    void Take(const QStringList& paths);

private:
    void Import();
    void OfferAgain(const QStringList& files);
    [[nodiscard]] bool CanBegin() const;

    frmController& controller_;
    MainWindow& window_;
    UserEvents& events_;
    QStringList waiting_;
    QTimer timer_;
    bool importing_ = false;
};

}  // namespace clb
