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

/// Takes statement files that arrive without the import command being chosen: dropped on the
/// window, or named at the start or by a second start. Imports them with that command, one after
/// the other, as soon as no other command runs and no dialog is open.
class IncomingFiles : public QObject {
public:
    using Answer = std::function<void(const std::string& path)>;

    /// All arguments are borrowed and outlive this. `answer` sets the file that answers the next
    /// file dialog.
    IncomingFiles(frmController& controller, MainWindow& window, UserEvents& events,
                  IMessageBox& messages, Answer answer);

    /// Takes paths; each is examined when its turn comes. A file that is not a statement is
    /// reported and skipped. If the row in edit cannot be saved, the rest is dropped.
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
