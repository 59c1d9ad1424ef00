// The toolkit's focus follows the focus of a form.
#pragma once
#include <sigc++/trackable.h>

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <map>
#include <vector>

#include "controls/Form.h"

namespace clb {

class UserEvents;

/// Keeps the toolkit's focus on the control that has the form's focus. The form decides: before the
/// focus moves, by mouse or by keys, the control that has it is asked. If it refuses, it gets the
/// focus back.
class FocusBinder : public QObject, public sigc::trackable {
public:
    /// Both are borrowed and outlive the binder.
    FocusBinder(Form& form, UserEvents& events);

    /// Adds the widget that takes the focus for a control, and other widgets that belong to the
    /// same control.
    void Add(Control& control, QWidget& widget, const std::vector<QWidget*>& parts = {});
    /// Moves the toolkit's focus to the control that has the form's.
    void Sync();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Ask(Control& control);
    void FocusCame(Control& control, Qt::FocusReason reason);
    void Watch(QWidget& widget, Control& control);

    Form& form_;
    UserEvents& events_;
    std::map<const Control*, QPointer<QWidget>> widgets_;
    std::map<const QObject*, Control*> controls_;
};

}  // namespace clb
