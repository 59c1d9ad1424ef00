#include "app/frmSplit.h"

namespace clb {

frmSplit::frmSplit(IModalHost& host)
    : host_(host),
      form_("frmSplit", "Split Transaction"),
      txtDescription("txtDescription"),
      Label2("Label2", "First amount:"),
      txtOriginal("txtOriginal", "0.00"),
      Label4("Label4", "Second amount:"),
      txtNew("txtNew"),
      upDown("upDown"),
      Label8("Label8", "Total:"),
      txtTotal("txtTotal", "0.00"),
      btnOK("btnOK", "OK"),
      btnCancel("btnCancel", "Cancel")
{
    for (Control* control :
         std::initializer_list<Control*>{&txtDescription, &Label2, &txtOriginal, &Label4, &txtNew,
                                         &upDown, &Label8, &txtTotal, &btnOK, &btnCancel})
        form_.Add(*control);
    for (TextBox* shown : {&txtDescription, &txtOriginal, &txtTotal})
        shown->Locked(true);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
    txtNew.TextChanged().connect([this] { Recompute(); });
    btnOK.Click().connect([this] {
        accepted_ = true;
        form_.Hide();
    });
    btnCancel.Click().connect([this] { form_.Hide(); });
}

bool frmSplit::Split(Money amount, const std::string& description, Money& first, Money& second)
{
    accepted_ = false;
    txtDescription.Text(description);
    amount_ = amount;
    txtNew.Text(amount.HalfToCents().ToText());
    txtNew.SelectAll();
    upDown.Attach(txtNew);
    Recompute();
    form_.Focus(txtNew);
    form_.ShowModal(host_);
    if (accepted_) {
        first = Money::Parse(txtOriginal.Text());
        second = Money::Parse(txtNew.Text());
    }
    return accepted_;
}

void frmSplit::Recompute()
{
    const auto second = Money::TryParse(txtNew.Text());
    btnOK.Enabled(second.has_value());
    if (!second)
        return;
    const Money first = amount_ - *second;
    txtOriginal.Text(first.ToText());
    txtTotal.Text((*second + first).ToText());
}

}  // namespace clb
