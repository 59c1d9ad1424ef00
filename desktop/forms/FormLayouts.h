// Places the widgets of a dialog.
#pragma once

namespace clb {

class FormDialog;

/// Places a dialog's widgets. Some forms have their own arrangement. In the others the lines are
/// one below the other, each label is left of its control, and the buttons are at the bottom.
void ArrangeForm(FormDialog& dialog);

}  // namespace clb
