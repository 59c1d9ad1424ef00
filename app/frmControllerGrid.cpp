// The answers to the grid's events: rows are checked and saved, and balances, totals, the tree and
// the enabled commands follow.

#include "app/OtherPrograms.h"
#include "app/frmController.h"
#include "data/NoticedBalances.h"
#include "data/ViewColumns.h"
#include "views/NodeTag.h"

namespace clb {

void frmController::WireGrid()
{
    Control& grid = Grid;
    Grid.FocusWanted().connect([this] { window.Focus(Grid); });
    grid.LostFocus().connect([this] { View().EnableDisable(); });
    grid.Validate().connect([this](bool& cancel) { cancel = !Grid.Update(); });

    Grid.BeforeEdit().connect(
        [this](std::int32_t, std::int32_t, std::int16_t, bool&) { View().EnableDisable(); });
    Grid.AfterEdit().connect([this](std::int32_t, std::int32_t) { View().EnableDisable(); });
    Grid.RowColChange().connect([this](std::int32_t, std::int32_t) { View().EnableDisable(); });
    Grid.BeforeUpdate().connect([this](bool& cancel) { CheckRow(cancel); });
    Grid.AfterUpdate().connect([this] { RowSaved(); });
    Grid.BeforeDelete().connect([this](bool& cancel) { CheckDeletion(cancel); });
    Grid.AfterDelete().connect([this] { RowDeleted(); });
    Grid.FetchColumnData().connect([this](std::int32_t row, std::int32_t column, const Value&,
                                          Value& value) { View().FetchCell(row, column, value); });
    Grid.FetchCellTip().connect([this](std::int32_t row, std::int32_t, std::int32_t,
                                       std::string& tip) { View().FetchTip(row, tip); });
    Grid.FetchGroupFooterText().connect([this](std::int16_t, std::int32_t row, std::string& text) {
        View().FetchFooter(row, text);
    });
    Grid.RowRestored().connect([this] { View().EnableDisable(); });
    Grid.UpdateRefused().connect([this] {
        // Ignored while the row was being saved; now the cell to correct becomes current.
        Grid.Col(refusedColumn_);
        Grid.Editing(true);
    });
}

void frmController::CheckRow(bool& cancel)
{
    if (!others_->AgreeOnRow()) {
        refusedColumn_ = Grid.Col();
        cancel = true;
        return;
    }
    std::string message;
    if (!Data().ValidRow(refusedColumn_, message)) {
        ports_.messages.Show(message, box_style::Critical, Title);
        Grid.Col(refusedColumn_);
        cancel = true;
        return;
    }
    WatchShownBalance();
    formerNumber_ = ListsAccounts() ? StoredAccountNumber() : std::string();
    if (View().Definition().transactions)
        OfferCategory(Grid.ColumnValue(Register::Category));
}

void frmController::OfferCategory(const Value& category)
{
    if (IsEmpty(category))
        return;
    auto& items = Grid.Columns().Item(Register::Category).valueItems;
    for (const GridValueItem& item : items)
        if (item.value == category)
            return;
    items.push_back({category, ToText(category)});
}

void frmController::UpdateShownBalance()
{
    std::int32_t view = -1;
    std::string account;
    Data().UpdateBalance(view, account);
}

void frmController::WatchShownBalance()
{
    if (View().Definition().ofAccount &&
        balances_.Look(Data(), View().AccountID(), ports_.clock.Now()))
        ShowBalanceNotice();
}

bool frmController::ListsAccounts() const
{
    return globals_.view->Definition().accounts != nullptr;
}

void frmController::RenameNoticedBalances()
{
    if (formerNumber_.empty())
        return;
    noticed_balances::FollowAccount(
        Data().Database(), formerNumber_,
        ToText(Grid.ColumnValue(View().Definition().accounts->accountID)));
}

void frmController::RowSaved()
{
    RenameNoticedBalances();
    UpdateShownBalance();
    View().RefreshTotals();
    // A new row is a stored one now.
    View().EnableDisable();
    if (!ListsAccounts())
        return;
    const std::int32_t selected = TreeView.Selected();
    View().BuildTree();
    if (selected <= TreeView.Count())
        TreeView.Select(selected);
}

void frmController::CheckDeletion(bool& cancel)
{
    cancel = !View().DeleteRow();
    if (!cancel)
        WatchShownBalance();
    pendingTreeNode_ = ListsAccounts() ? View().FindTreeNodeByTag(StoredAccountTag()) : 0;
}

std::string frmController::StoredAccountTag()
{
    // Not the view's account: that follows what is typed, and the typed may never have been saved.
    const Value type = Grid.Rows().Stored(Grid.Row(), View().Definition().accounts->type);
    return node_tag::OfAccount(clsView::ViewFromAccountType(ToText(type)), StoredAccountNumber());
}

std::string frmController::StoredAccountNumber()
{
    return ToText(Grid.Rows().Stored(Grid.Row(), View().Definition().accounts->accountID));
}

void frmController::RowDeleted()
{
    UpdateShownBalance();
    View().RefreshTotals();
    if (pendingTreeNode_ <= 0)
        return;
    const std::int32_t parent = TreeView.Node(pendingTreeNode_).parent;
    TreeView.Remove(TreeView.Children(parent) == 1 ? parent : pendingTreeNode_);
    pendingTreeNode_ = 0;
    NodeClicked(TreeView.Selected());
}

}  // namespace clb
