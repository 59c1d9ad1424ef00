#pragma once
#include <sigc++/trackable.h>

#include <QObject>
#include <QRect>
#include <QString>

class QSettings;

namespace clb {

class MainWindow;
class frmController;

/// What the window remembers from one start to the next: its size and place, whether it was
/// maximised, the border between tree and grid, and the widths that columns were given by hand. It
/// stands in a file of its own that only its user may read; a file that cannot be read or written
/// is no error, the window then opens as at its first start.
class WindowMemory : public QObject, public sigc::trackable {
public:
    /// The file below the user's folder for settings.
    static QString File();

    /// window and controller are borrowed and outlive this; the controller is loaded.
    WindowMemory(QString file, MainWindow& window, frmController& controller);

    /// Gives the window, not yet shown, what was remembered. A size has to fit the screen; a place
    /// where no screen would show the title is not used.
    void Restore();
    void Save() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void RestorePlace(const QSettings& settings);
    void RestoreColumns(QSettings& settings);
    void NotePlace();
    [[nodiscard]] bool MakeFile() const;

    QString file_;
    MainWindow& window_;
    frmController& controller_;
    QRect place_;  // top left of the frame and inner size, while neither maximised nor hidden
    bool maximized_ = false;
};

}  // namespace clb
