#include "app/HistoryCommands.h"

#include <optional>

#include "app/frmController.h"
#include "app/frmHistory.h"
#include "base/Product.h"
#include "data/ViewColumns.h"
#include "engine/rows/RawSql.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

/// Where a transaction is shown.
struct Place {
    std::string account;
    std::string type;
    std::int32_t year = 0;
    std::int32_t period = 0;
    Value sequence;
    Value subSequence;
};

/// Nothing if the row is not a transaction of an account that is there.
std::optional<Place> PlaceOf(frmController& window, const TouchedRow& row)
{
    std::optional<Place> place;
    if (row.table != "Trans")
        return place;
    RawSql(window.Data().Database())
        .Select(
            "SELECT a.AccountID, a.Type, t.Year, t.Period, t.Sequence, t.SubSequence "
            "FROM Trans t JOIN Account a ON a.AccountID = t.AccountID WHERE t.rowid = " +
                std::to_string(row.row) + " ORDER BY a.Sequence LIMIT 1",
            [&place](const RawSql::Row& found) {
                const auto number = [&found](int column) {
                    return static_cast<std::int32_t>(found.Integer(column));
                };
                place = Place{std::string(found.Text(0)),
                              std::string(found.Text(1)),
                              number(2),
                              number(3),
                              number(4),
                              number(5)};
            });
    return place;
}

void MoveToRow(CVGrid& grid, const Place& place)
{
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row)
        if (grid.Rows().Kind(row) == GridRowKind::Data &&
            grid.Rows().Stored(row, Register::Sequence) == place.sequence &&
            grid.Rows().Stored(row, Register::SubSequence) == place.subSequence) {
            grid.MoveTo(row, grid.Col());
            return;
        }
}

void Show(frmController& window, const Place& place)
{
    const std::int32_t node = window.View().FindTreeNodeByTag(
        node_tag::OfAccount(clsView::ViewFromAccountType(place.type), place.account));
    if (node == 0 || place.period < 1 || place.period > 12)
        return;
    window.View().HoldRefresh(true);
    window.ChooseMonth(place.period - 1);
    window.EnterYear(std::to_string(place.year));
    window.PressNode(node);
    window.View().HoldRefresh(false);
    // An import may have put transactions into an account that shows holdings.
    if (window.View().Definition().transactions)
        MoveToRow(window.Grid, place);
}

void ShowOutcome(frmController& window, const HistoryOutcome& outcome)
{
    if (outcome.steps.empty())
        return;
    window.ReloadWindow();
    for (const TouchedRow& row : outcome.touched)
        if (const auto place = PlaceOf(window, row)) {
            Show(window, *place);
            return;
        }
}

void TakeSteps(frmController& window, std::int64_t steps, bool undo)
{
    try {
        ShowOutcome(window, undo ? window.Steps().Undo(steps) : window.Steps().Redo(steps));
    } catch (const HistoryRefusal& refusal) {
        window.GivenPorts().messages.Show(refusal.what(), box_style::Exclamation, product::kTitle);
    }
}

}  // namespace

void UndoSteps(frmController& window, std::int64_t steps)
{
    TakeSteps(window, steps, true);
}

void RedoSteps(frmController& window, std::int64_t steps)
{
    TakeSteps(window, steps, false);
}

void ShowHistory(frmController& window)
{
    frmHistory(window.Steps(), window.GivenPorts().modal, [&window](bool undo, std::int64_t steps) {
        TakeSteps(window, steps, undo);
    }).ShowDialog();
}

}  // namespace clb
