// The dialog Split Transaction.
#pragma once
#include <string>

#include "base/Money.h"
#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

/// The dialog "Split Transaction". The user types the second amount; the first is the remainder.
class frmSplit {
public:
    /// Borrows the host, which outlives the dialog.
    explicit frmSplit(IModalHost& host);

    /// Proposes half of the amount. Returns true if the user accepts; the two amounts then add up
    /// to the whole. Any number is accepted, including negative ones and ones larger than the
    /// whole.
    bool Split(Money amount, const std::string& description, Money& first, Money& second);

private:
    void Recompute();

    IModalHost& host_;
    Form form_;
    TextBox txtDescription;
    Label Label2;
    TextBox txtOriginal;
    Label Label4;
    TextBox txtNew;
    Spinner upDown;
    Label Label8;
    TextBox txtTotal;
    Button btnOK;
    Button btnCancel;

    Money amount_;
    bool accepted_ = false;
};

}  // namespace clb
