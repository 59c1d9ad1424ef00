// Remembers the window from one start to the next.
#pragma once
#include <sigc++/trackable.h>

#include <QObject>
#include <QRect>
#include <QString>

class QSettings;

namespace clb {

class FileDialogPort;
struct HelpLook;
class MainWindow;
class frmController;

/// Remembers from one start to the next the window's size and place, whether it was maximised, the
/// border between tree and grid, the grid's zoom, the widths that the user gave to columns, and the
/// folder of the files chosen last. They are kept in a separate file that only the user can read. A
/// file that cannot be read or written is not an error: the window then opens as at its first
/// start.
class WindowMemory : public QObject, public sigc::trackable {
public:
    /// The path of the file, in the user's folder for settings.
    static QString File();

    /// What else is remembered.
    struct Others {
        FileDialogPort& dialogs;
        HelpLook& help;
    };
    /// All are borrowed and outlive this; the controller is loaded.
    WindowMemory(QString file, MainWindow& window, frmController& controller, const Others& others);

    /// Restores what was remembered, before the window is shown. Size and place are fitted to the
    /// screen. A place is not used if no screen would show the title there.
    void Restore();
    void Save() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void RestorePlace(const QSettings& settings);
    void RestoreColumns(QSettings& settings);
    void RestoreHelp(const QSettings& settings);
    void SaveHelp(QSettings& settings) const;
    void NotePlace();
    [[nodiscard]] bool MakeFile() const;

    QString file_;
    MainWindow& window_;
    frmController& controller_;
    Others others_;
    QRect place_;  // top left of the frame and inner size, while neither maximised nor hidden
    bool maximized_ = false;
};

}  // namespace clb
