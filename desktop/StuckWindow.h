#pragma once
#include <QDialog>
#include <memory>

class QLabel;

namespace clb {

class frmController;
class PlainPointer;
class UserEvents;

/// A command that stops in the middle may leave the main window disabled. This small window then
/// says what happened and offers to start again or to quit; closing it quits.
class StuckWindow : public QDialog {
public:
    /// All borrowed; they outlive it.
    StuckWindow(frmController& controller, UserEvents& events, QWidget& above);
    ~StuckWindow() override;

    /// To be called while no command runs: shows it when the main window is disabled, hides it when
    /// it is not.
    void Follow();
    /// Whether the program was ended to be started again.
    bool StartsAgain() const { return startsAgain_; }

    void reject() override;

protected:
    bool event(QEvent* event) override;

private:
    void Unload();

    frmController& controller_;
    UserEvents& events_;
    QLabel* text_;
    std::unique_ptr<PlainPointer> pointer_;  ///< over this window only
    bool startsAgain_ = false;
};

}  // namespace clb
