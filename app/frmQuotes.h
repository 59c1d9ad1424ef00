// The dialog "Changed Prices".
#pragma once
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"
#include "quotes/UpdateQuotes.h"

namespace clb {

/// The dialog "Changed Prices": lists the holdings whose price the last update has changed.
class frmQuotes {
public:
    explicit frmQuotes(const QuoteOutcome& outcome);

    void ShowDialog(IModalHost& host);
    /// One line: "2 of 3 prices changed".
    static std::string Sentence(const QuoteOutcome& outcome);

private:
    Form form_;
    Label lblPrices;
    RowList lstPrices;
    Button btnClose;
};

}  // namespace clb
