// The dialog "Import Result".
#pragma once
#include "app/ImportSummary.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"

namespace clb {

/// The dialog "Import Result": lists everything that an import has left out or refused, and the
/// balances that do not fit, below a heading for each file.
class frmImported {
public:
    explicit frmImported(const ImportSummary& summary);

    void ShowDialog(IModalHost& host);

private:
    Form form_;
    Label lblResult;
    RowList lstLeftOut;
    Button btnClose;
};

}  // namespace clb
