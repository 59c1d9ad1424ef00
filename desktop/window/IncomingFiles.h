// Imports statement files that are dropped or named.
#pragma once
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <string>

namespace clb {

class frmController;
class IMessageBox;
class MainWindow;
class UserEvents;

/// Statement files that come without the import command being chosen: dropped on the window, named
/// at the start or by a second start. Each is imported by that command, one after the other, as
/// soon as no other command runs and no dialog is open.
class IncomingFiles : public QObject {
public:
    using Answer = std::function<void(const std::string& path)>;

    /// All borrowed; they outlive this. The answer makes the next question for a file have this one
    /// for its answer.
    IncomingFiles(frmController& controller, MainWindow& window, UserEvents& events,
                  IMessageBox& messages, Answer answer);

    /// Paths; each is looked at when its turn comes. One that is no statement is told and passed
    /// over; when the row in edit cannot be saved, the rest is given up.
    void Take(const QStringList& paths);

private:
    void Next();
    [[nodiscard]] bool CanBegin() const;
    bool IsStatement(const std::string& path);

    frmController& controller_;
    MainWindow& window_;
    UserEvents& events_;
    IMessageBox& messages_;
    Answer answer_;
    QStringList waiting_;
    QTimer timer_;
    bool importing_ = false;
};

}  // namespace clb
