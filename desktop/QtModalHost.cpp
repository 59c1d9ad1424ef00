#include "desktop/QtModalHost.h"

#include "base/Interruption.h"
#include "desktop/DialogParent.h"
#include "desktop/FormDialog.h"
#include "desktop/PointerPort.h"

namespace clb {

void QtModalHost::Run(Form& form)
{
    const PlainPointer pointer;
    FormDialog dialog(form, events_, DialogParent());
    while (form.Visible()) {
        dialog.exec();
        Interruption::Check();
    }
}

}  // namespace clb
