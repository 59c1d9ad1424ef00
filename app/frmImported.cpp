#include "app/frmImported.h"

namespace clb {

frmImported::frmImported(const ImportSummary& summary)
    : form_("frmImported", "Import Result"),
      lblResult("lblResult", summary.Sentence() + "."),
      lstLeftOut("lstLeftOut", ImportSummary::DetailColumns(), {0}),
      btnClose("btnClose", "Close")
{
    for (Control* control : std::initializer_list<Control*>{&lblResult, &lstLeftOut, &btnClose})
        form_.Add(*control);
    lstLeftOut.Fill(summary.Details());
    form_.DefaultButton(btnClose);
    form_.CancelButton(btnClose);
    btnClose.Click().connect([this] { form_.Hide(); });
}

void frmImported::ShowDialog(IModalHost& host)
{
    form_.Focus(lstLeftOut);
    form_.ShowModal(host);
}

}  // namespace clb
