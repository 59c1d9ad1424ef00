#pragma once
#include <string>

#include "base/Money.h"
#include "controls/Form.h"
#include "controls/Inputs.h"

namespace clb {

/// The dialog "Split Transaction": the user types the second amount, the first is what remains.
class frmSplit {
public:
    /// The host is borrowed; it outlives the dialog.
    explicit frmSplit(IModalHost& host);

    /// Proposes half of the amount. True when the user accepted; the two amounts then add up to the
    /// whole. Any number is accepted, also one beyond the whole or negative.
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
