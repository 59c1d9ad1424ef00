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

/// Keeps the toolkit's focus where the form's is. The form decides: before the user gets to another
/// control, by mouse or by keys, the one that has the focus is asked, and when it refuses the focus
/// goes back to it.
class FocusBinder : public QObject, public sigc::trackable {
public:
    /// Both borrowed; they outlive the binder.
    FocusBinder(Form& form, UserEvents& events);

    /// The widget that has the focus for a control, and others that belong to it.
    void Add(Control& control, QWidget& widget, const std::vector<QWidget*>& parts = {});
    /// Puts the toolkit's focus where the form's is.
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
