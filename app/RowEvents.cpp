#include "app/RowEvents.h"

#include "app/OtherPrograms.h"
#include "app/RowAccount.h"
#include "app/frmController.h"
#include "base/Product.h"
#include "data/NoticedBalances.h"
#include "data/ViewColumns.h"

namespace clb {

void RowEvents::Connect()
{
    CVGrid& grid = window_.Grid;
    Control& control = grid;
    grid.FocusWanted().connect([this] { window_.window.Focus(window_.Grid); });
    control.Validate().connect([this](bool& cancel) { cancel = !window_.Grid.Update(); });
    grid.BeforeUpdate().connect([this](bool& cancel) { CheckRow(cancel); });
    grid.AfterUpdate().connect([this] { RowSaved(); });
    grid.BeforeDelete().connect([this](bool& cancel) { CheckDeletion(cancel); });
    grid.AfterDelete().connect([this] { RowDeleted(); });
    grid.UpdateRefused().connect([this] { ToCellToCorrect(); });
    grid.TypeDates(
        {[this] {
             const clsView& view = window_.View();
             return DateContext{window_.GivenPorts().clock.Now(), {view.Year(), view.Period()}};
         },
         window_.GivenPorts().showsResults});
    grid.KeepFolds(window_.GivenPorts().showsResults);
    grid.PassFooters(window_.GivenPorts().showsResults);
    if (window_.GivenPorts().showsResults)
        grid.PlaceNewRows();
    ConnectEnabling();
    ConnectDrawing();
}

void RowEvents::ConnectEnabling()
{
    CVGrid& grid = window_.Grid;
    Control& control = grid;
    const auto enable = [this] { window_.View().EnableDisable(); };
    control.LostFocus().connect(enable);
    grid.BeforeEdit().connect(
        [enable](std::int32_t, std::int32_t, std::int16_t, bool&) { enable(); });
    grid.AfterEdit().connect([enable](std::int32_t, std::int32_t) { enable(); });
    grid.RowColChange().connect([enable](std::int32_t, std::int32_t) { enable(); });
    grid.RowRestored().connect(enable);
}

void RowEvents::ConnectDrawing()
{
    CVGrid& grid = window_.Grid;
    grid.JudgeFigures(
        [this](std::size_t row, std::int32_t column) { return window_.View().Warns(row, column); },
        [this] { return std::string(window_.View().Definition().warning); });
    grid.FetchColumnData().connect(
        [this](std::int32_t row, std::int32_t column, const Value&, Value& value) {
            window_.View().FetchCell(row, column, value);
        });
    grid.FetchCellTip().connect([this](std::int32_t row, std::int32_t, std::int32_t,
                                       std::string& tip) { window_.View().FetchTip(row, tip); });
    grid.FetchGroupFooterText().connect([this](std::int16_t, std::int32_t row, std::string& text) {
        window_.View().FetchFooter(row, text);
    });
}

void RowEvents::CheckRow(bool& cancel)
{
    window_.Steps().BeginInner(StepName());
    if (!window_.Others().AgreeOnRow()) {
        refusedColumn_ = window_.Grid.Col();
        cancel = true;
        return;
    }
    if (!IsValid()) {
        window_.Grid.Col(refusedColumn_);
        cancel = true;
        return;
    }
    WatchShownBalance();
    formerNumber_ = ListsAccounts() ? StoredAccountNumber() : std::string();
    if (window_.View().Definition().transactions)
        OfferCategory(window_.Grid.ColumnValue(Register::Category));
}

bool RowEvents::IsValid()
{
    std::string message;
    if (window_.Data().ValidRow(refusedColumn_, message))
        return true;
    window_.GivenPorts().messages.Show(message, box_style::Critical, product::kTitle);
    return false;
}

void RowEvents::OfferCategory(const Value& category)
{
    if (IsEmpty(category))
        return;
    auto& items = window_.Grid.Columns().Item(Register::Category).valueItems;
    for (const GridValueItem& item : items)
        if (item.value == category)
            return;
    items.push_back({category, ToText(category)});
}

/// While the row was being saved, the grid ignored the move to the cell.
void RowEvents::ToCellToCorrect()
{
    window_.Grid.Col(refusedColumn_);
    window_.Grid.Editing(true);
}

void RowEvents::UpdateShownBalance()
{
    std::int32_t view = -1;
    std::string account;
    window_.Data().UpdateBalance(view, account);
}

void RowEvents::WatchShownBalance()
{
    const clsView& view = window_.View();
    if (view.Definition().ofAccount &&
        balances_.Check(window_.Data(), view.AccountID(), window_.GivenPorts().clock.Now()))
        window_.ShowBalanceNotice();
}

bool RowEvents::ListsAccounts() const
{
    return window_.View().Definition().accounts != nullptr;
}

void RowEvents::RenameNoticedBalances()
{
    if (formerNumber_.empty())
        return;
    noticed_balances::FollowAccount(
        window_.Data().Database(), formerNumber_,
        ToText(window_.Grid.ColumnValue(window_.View().Definition().accounts->accountID)));
}

void RowEvents::RowSaved()
{
    RenameNoticedBalances();
    UpdateShownBalance();
    window_.View().RefreshTotals();
    // A new row is a stored one now.
    window_.View().EnableDisable();
    ShowSavedAccount();
    window_.Steps().EndInner();
}

/// The tree lists the accounts, one of which may have another name or number now.
void RowEvents::ShowSavedAccount()
{
    if (!ListsAccounts())
        return;
    Tree& tree = window_.TreeView;
    const std::int32_t selected = tree.Selected();
    window_.View().BuildTree();
    if (selected <= tree.Count())
        tree.Select(selected);
}

/// What the history calls the saving of the row.
std::string RowEvents::StepName() const
{
    const bool isNew = window_.Grid.Row() == window_.Grid.Rows().NewRow();
    return std::string(isNew ? "New " : "Edit ") + window_.View().Definition().rowName;
}

void RowEvents::CheckDeletion(bool& cancel)
{
    cancel = !window_.View().DeleteRow();
    if (!cancel)
        WatchShownBalance();
    pendingTreeNode_ =
        ListsAccounts() ? window_.View().FindTreeNodeByTag(TagOfRowAccount(window_)) : 0;
}

std::string RowEvents::StoredAccountNumber() const
{
    return ToText(window_.Grid.Rows().Stored(window_.Grid.Row(),
                                             window_.View().Definition().accounts->accountID));
}

void RowEvents::RowDeleted()
{
    UpdateShownBalance();
    window_.View().RefreshTotals();
    if (pendingTreeNode_ <= 0)
        return;
    Tree& tree = window_.TreeView;
    const std::int32_t parent = tree.Node(pendingTreeNode_).parent;
    tree.Remove(tree.Children(parent) == 1 ? parent : pendingTreeNode_);
    pendingTreeNode_ = 0;
    window_.ShowSelected();
}

}  // namespace clb
