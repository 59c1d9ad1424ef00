#include "app/frmQuotes.h"

namespace clb {
namespace {

RowList::Line LineOf(const QuoteChange& change)
{
    const Money by = change.now - change.before;
    return {.heading = "",
            .row = {.cells = {change.symbol, change.before.Grouped(), change.now.Grouped(),
                              (by.IsNegative() ? "" : "+") + by.Grouped()}}};
}

}  // namespace

frmQuotes::frmQuotes(const QuoteOutcome& outcome)
    : form_("frmQuotes", "Changed Prices"),
      lblPrices("lblPrices", Sentence(outcome) + "."),
      lstPrices("lstPrices", {"Symbol", "Before", "Last Price", "Change"}, {1, 2, 3}),
      btnClose("btnClose", "Close")
{
    for (Control* control : std::initializer_list<Control*>{&lblPrices, &lstPrices, &btnClose})
        form_.Add(*control);
    std::vector<RowList::Line> lines;
    for (const QuoteChange& change : outcome.changed)
        lines.push_back(LineOf(change));
    lstPrices.Fill(std::move(lines));
    form_.DefaultButton(btnClose);
    form_.CancelButton(btnClose);
    btnClose.Click().connect([this] { form_.Hide(); });
}

void frmQuotes::ShowDialog(IModalHost& host)
{
    form_.Focus(lstPrices);
    form_.ShowModal(host);
}

std::string frmQuotes::Sentence(const QuoteOutcome& outcome)
{
    const std::string all = std::to_string(outcome.holdings);
    const std::string changed =
        outcome.changed.empty() ? "None" : std::to_string(outcome.changed.size());
    return changed + " of " + all + (outcome.holdings == 1 ? " price" : " prices") + " changed";
}

}  // namespace clb
