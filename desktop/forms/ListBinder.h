#pragma once
#include <sigc++/trackable.h>

#include <QComboBox>

#include "controls/Inputs.h"

namespace clb {

class UserEvents;

/// Draws a drop-down list; a choice of the user is handed on.
class ListBinder : public QComboBox, public sigc::trackable {
public:
    /// list and events are borrowed and outlive the binder.
    ListBinder(ListBox& list, UserEvents& events, QWidget* parent = nullptr);

private:
    void Sync();

    ListBox& list_;
};

}  // namespace clb
