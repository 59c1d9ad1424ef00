// The window that helps when the main window is disabled for good.
#pragma once
#include <QDialog>
#include <memory>
#include <optional>
#include <string>

#include "data/BackupFailure.h"

class QAbstractButton;
class QDialogButtonBox;
class QLabel;
class QPushButton;

namespace clb {

class frmController;
class PlainPointer;
class UserEvents;

/// A command that stops in the middle may leave the main window disabled. This small window then
/// says what happened and offers to start again or to quit. Closing it quits.
///
/// It also appears if the data file turns out to be damaged while the window is open. It then
/// disables the main window, says what is wrong, and offers to restore the last good backup, to go
/// on, or to quit.
class StuckWindow : public QDialog {
public:
    /// All arguments are borrowed and outlive the window.
    StuckWindow(frmController& controller, UserEvents& events, QWidget& above);
    ~StuckWindow() override;

    /// Shows this window if the main window is disabled, otherwise hides it. Call it only while no
    /// command runs.
    void Follow();
    /// Whether the user ended the program to start it again.
    [[nodiscard]] bool StartsAgain() const { return startsAgain_; }

    /// Shows that the data file is damaged, as soon as no command runs. It is not shown again after
    /// the user has chosen to go on.
    void Damaged(const BackupFailure& failure);
    /// Name of the backup to restore before starting again; empty: none.
    [[nodiscard]] const std::string& Restores() const { return restores_; }

    void reject() override;

protected:
    bool event(QEvent* event) override;

private:
    void Unload();
    QPushButton* AddButton(const char* name, const QString& caption, int role);
    void Pressed(const QAbstractButton* button);
    void GoOn();
    void TellStuck();
    void TellDamaged();

    frmController& controller_;
    UserEvents& events_;
    QLabel* text_;
    QDialogButtonBox* buttons_;
    QPushButton* again_;
    QPushButton* restore_;
    QPushButton* goOn_;
    QPushButton* quit_;
    std::optional<BackupFailure> damage_;
    bool tellsDamage_ = false;
    bool wentOn_ = false;
    std::string restores_;
    std::unique_ptr<PlainPointer> pointer_;  ///< over this window only
    bool startsAgain_ = false;
};

}  // namespace clb
