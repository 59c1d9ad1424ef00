#include "app/frmSplit.h"

#include "base/Text.h"

namespace clb {
namespace {

/// Two decimals, or all that the amount has.
std::string TwoDecimals(Money amount)
{
    const std::string grouped = amount.Grouped();
    return Money::Parse(grouped) == amount ? grouped : amount.ToText();
}

std::string Piece(Money amount)
{
    if (amount.IsZero())
        return "nothing";
    return amount.IsNegative() ? "a payment of " + TwoDecimals(-amount)
                               : "a deposit of " + TwoDecimals(amount);
}

}  // namespace

frmSplit::frmSplit(IModalHost& host, const AmountHabits* habits)
    : host_(host),
      habits_(habits),
      form_("frmSplit", "Split Transaction"),
      txtDescription("txtDescription"),
      Label2("Label2", "First amount:"),
      txtOriginal("txtOriginal", "0.00"),
      Label4("Label4", "Second amount:"),
      txtNew("txtNew"),
      upDown("upDown"),
      Label8("Label8", "Total:"),
      txtTotal("txtTotal", "0.00"),
      lblPieces("lblPieces", ""),
      btnTurn("btnTurn", "Turn sign"),
      btnOK("btnOK", "OK"),
      btnCancel("btnCancel", "Cancel")
{
    for (Control* control : std::initializer_list<Control*>{
             &txtDescription, &Label2, &txtOriginal, &Label4, &txtNew, &upDown, &Label8, &txtTotal})
        form_.Add(*control);
    if (habits_)
        for (Control* control : std::initializer_list<Control*>{&lblPieces, &btnTurn})
            form_.Add(*control);
    for (Button* button : {&btnOK, &btnCancel})
        form_.Add(*button);
    for (TextBox* shown : {&txtDescription, &txtOriginal, &txtTotal})
        shown->Locked(true);
    form_.DefaultButton(btnOK);
    form_.CancelButton(btnCancel);
    txtNew.TextChanged().connect([this] { Recompute(); });
    btnTurn.Click().connect([this] { TurnSign(); });
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
    txtNew.Text(Typed(amount.HalfToCents()));
    txtNew.SelectAll();
    upDown.Attach(txtNew, {[this](const std::string& text) {
                               std::string refusal;
                               return Read(text, refusal);
                           },
                           [this](Money value) { return Typed(value); }});
    Recompute();
    form_.Focus(txtNew);
    form_.ShowModal(host_);
    if (accepted_) {
        first = first_;
        second = second_;
    }
    return accepted_;
}

void frmSplit::Recompute()
{
    std::string refusal;
    const auto second = Read(txtNew.Text(), refusal);
    for (Button* button : {&btnOK, &btnTurn})
        button->Enabled(second.has_value());
    if (!second)
        return lblPieces.Caption(refusal);
    second_ = *second;
    first_ = amount_ - second_;
    txtOriginal.Text(Shown(first_));
    txtTotal.Text(Shown(second_ + first_));
    lblPieces.Caption("Stays: " + Piece(first_) + ". New row: " + Piece(second_) + ".");
}

void frmSplit::TurnSign()
{
    txtNew.Text(Typed(-second_));
    form_.Focus(txtNew);
}

std::optional<Money> frmSplit::Read(const std::string& text, std::string& refusal) const
{
    if (!habits_)
        return Money::TryParse(text);
    TypedAmount typed = ReadTypedAmount(text, *habits_);
    refusal = typed.refusal;
    if (!typed.value || !amount_.IsNegative() || typed.value->IsNegative())
        return typed.value;
    return Trim(text).starts_with('+') ? typed.value : -*typed.value;
}

std::string frmSplit::Shown(Money amount) const
{
    return habits_ ? TwoDecimals(amount) : amount.ToText();
}

/// As it would be typed: Read gives the amount back.
std::string frmSplit::Typed(Money second) const
{
    const bool against = habits_ != nullptr && amount_.IsNegative() && second > Money();
    return (against ? "+" : "") + Shown(second);
}

}  // namespace clb
