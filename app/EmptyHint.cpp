#include "app/EmptyHint.h"

#include "app/frmController.h"

namespace clb {

namespace {

const EmptyHint::Way kImport{"Import a statement", "mnuF_Import"};

EmptyHint::Way New(const char* caption)
{
    return {caption, "mnuE_New"};
}

std::optional<EmptyHint> HintOfView(frmController& window)
{
    if (const std::string& why = window.View().WhyEmpty(); !why.empty())
        return EmptyHint{"This view could not be read", why + " Choose it again to read it.", {}};
    const std::string month = window.cmbPeriod.Text() + " " + window.txtYear.Text();
    switch (window.View().View()) {
        case vwNetWorth:
            return EmptyHint{"No accounts yet",
                             "Enter your first account in the line above, or import a statement "
                             "of your bank and let it make the account.",
                             {New("New account"), kImport}};
        case vwAccountType:
            return EmptyHint{
                "No accounts of this type", "Enter one in the line above.", {New("New account")}};
        case vwAccount:
            return EmptyHint{"No transactions in " + month,
                             "Enter one in the line above, import a statement, or go to another "
                             "month with Back and Forward.",
                             {New("New transaction"), kImport}};
        case vwBudget:
            return EmptyHint{
                "No budget for " + month,
                "Enter a category and its amount in the line above, or start from "
                "the month before.",
                {{"Copy the previous month's budget", "mnuE_Copy"}, New("New category")}};
        case vwInvestment:
            return EmptyHint{
                "No holdings yet", "Enter one in the line above.", {New("New holding")}};
        case vwLoan:
            return EmptyHint{"No loans yet", "Enter one in the line above.", {New("New loan")}};
        default: return std::nullopt;
    }
}

bool Empty(GridComponent& grid)
{
    const GridRows& rows = grid.Rows();
    return rows.Count() == (rows.NewRow() == 0 ? 0u : 1u) && !grid.Dirty() && !grid.Editing();
}

}  // namespace

std::optional<EmptyHint> HintFor(frmController& window)
{
    if (!window.Loaded() || !Empty(window.Grid.Component()))
        return std::nullopt;
    std::optional<EmptyHint> hint = HintOfView(window);
    if (hint)
        std::erase_if(hint->ways, [&window](const EmptyHint::Way& way) {
            return !window.menus.Find(way.item)->Enabled();
        });
    return hint;
}

}  // namespace clb
