#include "desktop/window/TreeFold.h"

#include <sigc++/adaptors/track_obj.h>

#include <QAbstractScrollArea>
#include <QKeyEvent>

#include "app/frmController.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/Icons.h"

namespace clb {

TreeFold::TreeFold(frmController& controller, UserEvents& events, QWidget& tree, QWidget* parent)
    : QToolButton(parent), controller_(controller), events_(events), tree_(tree)
{
    setObjectName(QStringLiteral("TreeFold"));
    setAutoRaise(true);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setIcon(icons::Command("tree"));
    setToolTip(QStringLiteral("Views and accounts"));
    setAccessibleName(toolTip());
    setVisible(false);
    controller_.TreeView.NodeClick().connect(
        sigc::track_obj([this](std::int32_t /*node*/) { chosen_ = pressed_; }, *this));
    connect(this, &QToolButton::clicked, this, [this] { Toggle(); });
    tree_.installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&tree_))
        area->viewport()->installEventFilter(this);
}

bool TreeFold::InTree() const
{
    return controller_.window.Focus() == &controller_.TreeView;
}

void TreeFold::Follow()
{
    const bool folds = controller_.TreeFolded();
    if (folds && !folded_ && InTree())
        Leave();
    folded_ = folds;
    setVisible(folds);
    setChecked(folds && InTree());
    if (folds)
        tree_.raise();
}

void TreeFold::Toggle()
{
    if (InTree())
        Leave();
    else
        events_.Run([this] { controller_.window.Focus(controller_.TreeView); });
    Follow();
}

void TreeFold::Leave()
{
    events_.Run([this] { controller_.window.Focus(controller_.Grid); });
}

bool TreeFold::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (!folded_)
        return false;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease)
        pressed_ = event->type() == QEvent::MouseButtonPress;
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    const bool leaves = key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (leaves || (!pressed_ && chosen_)) {
        chosen_ = false;
        QMetaObject::invokeMethod(
            this, [this] { Leave(); }, Qt::QueuedConnection);
    }
    return leaves;
}

}  // namespace clb
