// Draws a drop-down list.
#pragma once
#include <sigc++/trackable.h>

#include <QComboBox>

#include "controls/Inputs.h"

namespace clb {

class UserEvents;

/// Draws a drop-down list and hands the user's choice to it.
class ListBinder : public QComboBox, public sigc::trackable {
public:
    /// list and events are borrowed and outlive the binder.
    ListBinder(ListBox& list, UserEvents& events, QWidget* parent = nullptr);

private:
    void Sync();

    ListBox& list_;
};

}  // namespace clb
