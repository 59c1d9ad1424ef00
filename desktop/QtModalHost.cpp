#include "desktop/QtModalHost.h"

#include "base/Interruption.h"
#include "desktop/DialogParent.h"
#include "desktop/FormDialog.h"
#include "desktop/PointerPort.h"
#include "desktop/UserEvents.h"

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
