#include "app/StepPlaces.h"

#include <algorithm>
#include <optional>
#include <string>

#include "app/frmController.h"
#include "base/Numeric.h"
#include "base/Text.h"
#include "data/ViewColumns.h"
#include "engine/rows/RawSql.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

/// Where a row is shown.
struct Place {
    std::string tag;             ///< of the tree's node
    std::optional<Month> month;  ///< nothing: in every month
};

/// The cells of a row that tell where it is shown.
struct Clues {
    std::string account;
    Month month;
};

bool IsIn(const TouchedRow& row, std::string_view table)
{
    return EqualsIgnoringCase(row.table, table);
}

std::string CellOf(const TouchedRow& row, std::string_view column)
{
    for (const auto& [name, value] : row.cells)
        if (EqualsIgnoringCase(name, column))
            return ToText(value);
    return {};
}

std::int32_t NumberIn(const TouchedRow& row, std::string_view column)
{
    const std::string text = CellOf(row, column);
    return IsNumeric(text) ? ParseLong(text) : 0;
}

std::optional<Clues> CluesOf(frmController& window, const TouchedRow& row)
{
    if (!row.cells.empty())
        return Clues{CellOf(row, "AccountID"), {NumberIn(row, "Year"), NumberIn(row, "Period")}};
    const char* const columns = IsIn(row, "Trans")    ? "AccountID, Year, Period"
                                : IsIn(row, "Budget") ? "'', Year, Period"
                                                      : "AccountID, 0, 0";
    std::optional<Clues> clues;
    RawSql(window.Data().Database())
        .Select(std::string("SELECT ") + columns + " FROM " + row.table +
                    " WHERE rowid = " + std::to_string(row.row),
                [&clues](const RawSql::Row& found) {
                    clues = Clues{std::string(found.Text(0)),
                                  {static_cast<std::int32_t>(found.Integer(1)),
                                   static_cast<std::int32_t>(found.Integer(2))}};
                });
    return clues;
}

/// Tag of the account's node; empty if there is no such account.
std::string TagOfAccount(frmController& window, const std::string& account)
{
    std::string tag;
    // Two accounts may have one number: the rows belong to both.
    RawSql(window.Data().Database())
        .Select("SELECT Type FROM Account WHERE AccountID = '" + clsDatabase::ToSqlString(account) +
                    "' ORDER BY Sequence LIMIT 1",
                [&](const RawSql::Row& found) {
                    tag = node_tag::OfAccount(
                        clsView::ViewFromAccountType(std::string(found.Text(0))), account);
                });
    return tag;
}

/// The present view if it lists accounts of this one's type, else the one of all accounts.
std::string TagOfList(frmController& window, const TouchedRow& row)
{
    const clsView& view = window.View();
    const bool lists = view.Definition().accounts != nullptr;
    const bool shows = lists && (!row.cells.empty() || window.Grid.Rows().OfIdentity(
                                                           static_cast<std::size_t>(row.row)) != 0);
    return shows ? view.ShownNode().tag : node_tag::OfView(vwNetWorth);
}

/// Nothing if no view shows the row.
std::optional<Place> PlaceOf(frmController& window, const TouchedRow& row)
{
    if (IsIn(row, "Account"))
        return Place{TagOfList(window, row), std::nullopt};
    const bool ofMonth = IsIn(row, "Trans") || IsIn(row, "Budget");
    if (!ofMonth && !IsIn(row, "Investment") && !IsIn(row, "Loan"))
        return std::nullopt;
    const std::optional<Clues> clues = CluesOf(window, row);
    if (!clues || (ofMonth && (clues->month.period < 1 || clues->month.period > 12)))
        return std::nullopt;
    const std::string tag =
        IsIn(row, "Budget") ? node_tag::OfView(vwBudget) : TagOfAccount(window, clues->account);
    if (tag.empty())
        return std::nullopt;
    return Place{tag, ofMonth ? std::optional(clues->month) : std::nullopt};
}

/// How much the place of a row says about the step: an account that came or went is what it was
/// about, but the balance of an account follows other rows, as a budget line may do.
int Weight(const TouchedRow& row)
{
    if (IsIn(row, "Account"))
        return row.came || !row.cells.empty() ? 3 : 0;
    return IsIn(row, "Budget") ? 1 : 2;
}

bool IsShown(frmController& window, const Place& place)
{
    const clsView& view = window.View();
    return view.ShownNode().tag == place.tag &&
           (!place.month || *place.month == Month{view.Year(), view.Period()});
}

void Show(frmController& window, const Place& place)
{
    const std::int32_t node = window.View().FindTreeNodeByTag(place.tag);
    if (node == 0)
        return;
    if (IsShown(window, place)) {
        // An account that was just made may be selected in the tree.
        if (window.TreeView.Selected() != node)
            window.TreeView.Select(node);
        return;
    }
    window.View().HoldRefresh(true);
    if (place.month) {
        window.ChooseMonth(place.month->period - 1);
        window.EnterYear(std::to_string(place.month->year));
    }
    window.TreeView.Select(node);
    window.ShowSelected();
    window.View().HoldRefresh(false);
}

/// Displayed number of the row, whose group is opened if it was folded; 0 if it is not there.
std::size_t Reveal(CVGrid& grid, std::size_t identity)
{
    std::size_t found = grid.Rows().OfIdentity(identity);
    for (std::size_t row = 1; found == 0 && row <= grid.Rows().Count(); ++row) {
        if (grid.Rows().Kind(row) != GridRowKind::GroupHeading || !grid.Rows().Folded(row))
            continue;
        grid.Fold(row, false);
        found = grid.Rows().OfIdentity(identity);
        if (found == 0)
            grid.Fold(row, true);
    }
    return found;
}

bool MoveToRow(frmController& window, const TouchedRow& touched)
{
    // An import may have put transactions into an account that shows holdings.
    if (IsIn(touched, "Trans") && !window.View().Definition().transactions)
        return false;
    CVGrid& grid = window.Grid;
    const std::size_t row =
        touched.cells.empty() ? Reveal(grid, static_cast<std::size_t>(touched.row)) : 0;
    if (row != 0)
        grid.MoveTo(row, std::max(grid.Col(), kFirstColumn));
    return row != 0;
}

}  // namespace

bool ShowTouched(frmController& window, std::vector<TouchedRow> touched)
{
    std::stable_sort(touched.begin(), touched.end(), [](const auto& one, const auto& other) {
        return Weight(one) > Weight(other);
    });
    for (const TouchedRow& row : touched) {
        const std::optional<Place> place = PlaceOf(window, row);
        if (!place)
            continue;
        Show(window, *place);
        return MoveToRow(window, row);
    }
    return false;
}

}  // namespace clb
