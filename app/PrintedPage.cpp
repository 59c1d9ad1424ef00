#include "app/PrintedPage.h"

#include "app/frmController.h"
#include "base/Product.h"

namespace clb {

GridPage PrintedPage(frmController& window)
{
    GridPage page;
    // The caption begins with the name of what is shown.
    const std::string caption = window.window.Caption();
    page.title = caption.substr(0, caption.rfind(std::string(" - ") + product::kTitle));
    const ViewDefinition& view = window.View().Definition();
    if (view.ofMonth)
        page.subtitle = window.cmbPeriod.Text() + " " + window.txtYear.Text();
    page.totalLabel = window.lblTotal.Caption();
    if (view.firstTotal != 0)
        page.totals.push_back({view.firstTotal, window.txtTotal.Text()});
    if (view.secondTotal != 0)
        page.totals.push_back({view.secondTotal, window.txtTotal2.Text()});
    return page;
}

}  // namespace clb
