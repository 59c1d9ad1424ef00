// Draws the arrows beside a text box.
#pragma once
#include <QWidget>

#include "controls/Inputs.h"

namespace clb {

class UserEvents;

/// Draws a spinner beside its text box, as an arrow up and an arrow down.
class StepArrows : public QWidget {
public:
    /// Both are borrowed and outlive the arrows.
    StepArrows(Spinner& spinner, UserEvents& events, QWidget* parent = nullptr);
};

}  // namespace clb
