#include "desktop/ports/QtModalHost.h"

#include "base/Interruption.h"
#include "desktop/forms/FormDialog.h"
#include "desktop/input/UserEvents.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/PointerPort.h"

namespace clb {

void QtModalHost::Run(Form& form)
{
    const PlainPointer pointer;
    FormDialog dialog(form, events_, DialogParent());
    const auto before = events_.WhenBroken([&form] { form.Hide(); });
    while (form.Visible() && !events_.BrokenOff() && !Interruption::Asked())
        dialog.exec();
    events_.WhenBroken(before);
    events_.PassOn();
    Interruption::Check();
}

}  // namespace clb
