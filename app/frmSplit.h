// The dialog Split Transaction.
#pragma once
#include <optional>
#include <string>

#include "base/Money.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "typed/TypedAmount.h"

namespace clb {

/// The dialog "Split Transaction". The user types the second amount; the first is the remainder.
class frmSplit {
public:
    /// Borrows both, which outlive the dialog. habits: how the user writes amounts; nullptr: the
    /// texts have the fixed form, and the second amount is exactly what was typed.
    ///
    /// With habits the amounts have two decimals, and a line says what each piece will be. An
    /// amount that is typed without a sign then has the sign of the whole: of a payment of 85.40,
    /// "25.40" is a payment of 25.40, and "+25.40" a deposit. A button turns the sign.
    explicit frmSplit(IModalHost& host, const AmountHabits* habits = nullptr);

    /// Proposes half of the amount. Returns true if the user accepts; the two amounts then add up
    /// to the whole. Any number is accepted, including negative ones and ones larger than the
    /// whole.
    bool Split(Money amount, const std::string& description, Money& first, Money& second);

private:
    void Recompute();
    void TurnSign();
    [[nodiscard]] std::optional<Money> Read(const std::string& text, std::string& refusal) const;
    [[nodiscard]] std::string Shown(Money amount) const;
    [[nodiscard]] std::string Typed(Money second) const;

    IModalHost& host_;
    const AmountHabits* habits_;
    Form form_;
    TextBox txtDescription;
    Label Label2;
    TextBox txtOriginal;
    Label Label4;
    TextBox txtNew;
    Spinner upDown;
    Label Label8;
    TextBox txtTotal;
    Label lblPieces;
    Button btnTurn;
    Button btnOK;
    Button btnCancel;

    Money amount_;
    Money first_;
    Money second_;
    bool accepted_ = false;
};

}  // namespace clb
