#include "app/QuoteResult.h"

#include <utility>

#include "app/frmController.h"
#include "app/frmQuotes.h"
#include "base/Product.h"

namespace clb {
namespace {

constexpr const char* kNotice = "quotes";

}  // namespace

void QuoteResult::Say(QuoteOutcome outcome)
{
    outcome_ = std::move(outcome);
    shown_ = true;
    shownAt_ = NewestStep();
    window_.notices.Inform(kNotice,
                           frmQuotes::Sentence(*outcome_) +
                               (outcome_->changed.empty() ? "" : " (Shift+F5 shows them)"));
}

void QuoteResult::Show()
{
    const Ports& ports = window_.GivenPorts();
    if (!outcome_)
        return static_cast<void>(
            ports.messages.Show("No prices were updated yet. Please choose Tools|Update Quotes.",
                                box_style::Information, product::kTitle));
    if (window_.Grid.Bound()) {
        window_.Grid.Refetch();
        window_.View().RefreshTotals();
    }
    frmQuotes(*outcome_).ShowDialog(ports.modal);
}

void QuoteResult::Follow()
{
    if (!shown_ || NewestStep() == shownAt_)
        return;
    shown_ = false;
    window_.notices.Inform(kNotice, "");
}

std::int64_t QuoteResult::NewestStep() const
{
    const auto step = window_.Steps().NextToUndo();
    return step ? step->number : 0;
}

}  // namespace clb
