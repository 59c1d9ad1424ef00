#include "views/clsView.h"

#include <utility>

#include "base/Quietly.h"
#include "base/RuntimeError.h"
#include "data/AccountKind.h"
#include "data/ViewColumns.h"
#include "data/clsDatabase.h"
#include "views/NodeTag.h"

namespace clb {

namespace {

constexpr const char* kUnread = "The rows could not be read.";

}  // namespace

clsView::clsView(const ViewTargets& targets)
    : targets_(targets), accountTree_(targets_.tree), layout_(targets_)
{
    targets_.grid.ColumnResized().connect(sigc::track_obj(
        [this](std::int32_t column, std::int32_t pixels) {
            layout_.WidthByHand(view_, column, pixels);
            SetColWidths();
        },
        *this));
}

void clsView::View(std::int32_t view)
{
    view_ = view;
    Refresh();
}

void clsView::Period(std::int32_t month)
{
    period_ = month;
    Refresh();
}

void clsView::Year(std::int32_t year)
{
    year_ = year;
    Refresh();
}

void clsView::HoldRefresh(bool hold)
{
    hold_ = hold;
    if (!hold)
        Refresh();
}

void clsView::Refresh()
{
    if (hold_)
        return;
    const CVGrid& shown = targets_.grid;  // is not to read its rows again
    const GridSort sort =
        std::exchange(sortedView_, view_) == view_ ? shown.Rows().Sort() : GridSort();
    targets_.grid.RedrawEnabled(false);
    OrShowNothing([&] {
        targets_.grid.CancelEdit();
        targets_.grid.DataSource(database_->GetRows());
        RefreshTotals();
        layout_.LayOut(Definition(), *database_);
        ShowSights();
        SortAgain(sort);
        EnableDisable();
        whyEmpty_.clear();
    });
    targets_.grid.RedrawEnabled(true);
    refreshed_.emit();
}

/// What only a person sees.
void clsView::ShowSights()
{
    CVGrid& grid = targets_.grid;
    const bool shows = targets_.forPerson && Definition().transactions;
    grid.DayColumn(shows ? Register::PostDate : 0);
    if (!shows)
        return grid.Beside(std::nullopt);
    grid.Beside(GridContent::SideFigures{"Balance", Register::Amount, [this](std::size_t row) {
                                             const auto balance =
                                                 running_.After(targets_.grid.Rows(), row);
                                             return balance ? balance->Grouped() : std::string();
                                         }});
}

/// A reload of the same view keeps the order that the user has chosen, and begins at its top.
void clsView::SortAgain(const GridSort& sort)
{
    CVGrid& grid = targets_.grid;
    if (sort.column == 0 || !grid.SortBy(sort))
        return;
    if (const std::size_t first = grid.Rows().FirstData(); first != 0)
        grid.MoveTo(first, kFirstColumn);
}

template <class Work>
void clsView::OrShowNothing(const Work& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        ShowNothing(error.what());
        throw;
    } catch (...) {
        ShowNothing(kUnread);
        throw;
    }
}

void clsView::ShowNothing(const char* why) noexcept
{
    CVGrid& grid = targets_.grid;
    Quietly([&] {
        if (grid.Redraw())
            grid.RedrawEnabled(false);
    });
    Quietly([&] { grid.DataSource(nullptr); });
    Quietly([&] { grid.Beside(std::nullopt); });
    Quietly([&] { whyEmpty_ = why; });
    // Without a view there are no totals that could be others, and those shown stay.
    if (Definition().view != 0) {
        Quietly([this] { targets_.lblTotal.Caption(""); });
        Quietly([this] { targets_.txtTotal.Text(""); });
        Quietly([this] { targets_.txtTotal2.Text(""); });
    }
    Quietly([this] { EnableDisable(); });
    Quietly([&] { grid.RedrawEnabled(true); });
}

void clsView::DropClosedRows() noexcept
{
    if (!targets_.grid.Bound() && whyEmpty_.empty())
        ShowNothing(kUnread);
}

void clsView::ReadAnew()
{
    CVGrid& grid = targets_.grid;
    if (grid.Dirty() || grid.Editing())
        return;
    if (!grid.Bound())
        return Refresh();
    OrShowNothing([&] {
        database_->RowsRead();
        grid.ReadRowsAnew();
        RefreshTotals();
        layout_.FillLists(Definition(), *database_);
        EnableDisable();
    });
}

std::int32_t clsView::ViewFromAccountType(std::string_view type)
{
    return clb::ViewFromAccountType(type);
}

void clsView::BuildTree()
{
    accountTree_.Build(*database_);
    treeBuilt_.emit();
}

TreeNode clsView::ShownNode() const
{
    TreeNode node;
    node.tag =
        Definition().ofAccount ? node_tag::OfAccount(view_, accountID_) : node_tag::OfView(view_);
    if (Definition().ofType)
        node.key = node.text = accountType_;
    return node;
}

void clsView::WidthsByHand(const HandWidths& widths)
{
    layout_.WidthsByHand(widths);
    SetColWidths();
}

void clsView::RefreshTotals()
{
    Money first;
    Money second;
    database_->CalcTotals(first, second);
    running_.EndsWith(first);
    targets_.txtTotal.Text(first.Grouped());
    targets_.txtTotal2.Text(second.Grouped());
}

DrawnRow clsView::Drawn(std::int32_t row)
{
    return {targets_.grid, *database_, *this, static_cast<std::size_t>(row), lastActual_};
}

void clsView::FetchCell(std::int32_t row, std::int32_t column, Value& value)
{
    if (Definition().cell)
        Definition().cell(Drawn(row), column, value);
}

void clsView::FetchTip(std::int32_t row, std::string& tip)
{
    if (Definition().tip)
        tip = Definition().tip(Drawn(row));
}

void clsView::FetchFooter(std::int32_t row, std::string& text)
{
    if (Definition().footer)
        text = Definition().footer(Drawn(row));
}

std::optional<bool> clsView::Warns(std::size_t row, std::int32_t column)
{
    if (!Definition().warns)
        return std::nullopt;
    return Definition().warns(Drawn(static_cast<std::int32_t>(row)), column);
}

bool clsView::OnStoredRow()
{
    return targets_.grid.Position() != 1;
}

void clsView::DecideExport()
{
    const ViewDefinition& view = Definition();
    if (view.exports == ExportOf::Undecided)
        return;
    exportAllowed_ = view.exports == ExportOf::ShownAccount;
    if (view.accountType)
        accountType_ = view.accountType;
    if (view.exports != ExportOf::CurrentRow || !OnStoredRow())
        return;
    exportAllowed_ = true;
    accountID_ = ToText(targets_.grid.ColumnValue(view.accounts->accountID));
    accountType_ = ToText(targets_.grid.ColumnValue(view.accounts->type));
}

bool clsView::GridHasFocus() const
{
    return targets_.window.Focus() == &targets_.grid;
}

bool clsView::DeleteRow()
{
    const BoxAnswer answer =
        targets_.messages.Show("Are you sure you want to delete this record?",
                               box_style::YesNo + box_style::Question, targets_.title);
    return answer == BoxAnswer::Yes && database_->DeleteRow(GridHasFocus());
}

void clsView::EnableDisable()
{
    DecideExport();
    const bool editing = targets_.grid.Editing();
    const bool inGrid = GridHasFocus();
    const bool hasRow = OnStoredRow();
    targets_.enable({.offNewRow = !inGrid || hasRow,
                     .onStoredRow = inGrid && hasRow && !editing,
                     .onTransaction = inGrid && hasRow && Definition().transactions,
                     .onExportable = HasTransactions(accountType_) && exportAllowed_ && !editing});
    targets_.statusBar.Panel(1, inGrid ? "Double click or press F2 to edit cell content."
                                       : "Select an item to work with.");
}

}  // namespace clb
