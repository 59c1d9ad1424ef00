#pragma once

namespace clb {

class FormDialog;

/// Places a dialog's widgets: by the arrangement known for its form's name, else labels left of
/// what they describe, one line below the other, buttons at the foot.
void ArrangeForm(FormDialog& dialog);

}  // namespace clb
