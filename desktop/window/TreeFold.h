// The button that shows the tree in a narrow window.
#pragma once
#include <sigc++/trackable.h>

#include <QToolButton>

namespace clb {

class UserEvents;
class frmController;

/// While the window is too narrow for tree and grid side by side, this button shows the tree over
/// the grid and hides it again. Choosing a node with the mouse, Escape and Enter hide it too. The
/// tree is shown exactly while it has the focus.
class TreeFold : public QToolButton, public sigc::trackable {
public:
    /// controller and events are borrowed and outlive the button; tree is the widget of the tree.
    TreeFold(frmController& controller, UserEvents& events, QWidget& tree, QWidget* parent);

    /// Shows or hides the button and the tree as the window is wide now.
    void Follow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Toggle();
    void Leave();
    [[nodiscard]] bool InTree() const;

    frmController& controller_;
    UserEvents& events_;
    QWidget& tree_;
    bool folded_ = false;
    bool pressed_ = false;  // a button of the mouse is down in the tree
    bool chosen_ = false;   // and has chosen a node
};

}  // namespace clb
