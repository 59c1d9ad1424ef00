// The answers to the grid's events: rows are checked and saved, and balances, totals, the tree and
// the enabled commands follow. In the budget view the figures that no table holds come from here.

#include <cmath>

#include "app/OtherPrograms.h"
#include "app/frmController.h"
#include "data/NoticedBalances.h"
#include "data/WrongAmount.h"
#include "engine/EngineError.h"

namespace clb {
namespace {

// Columns by their position in the rows of a view.
constexpr std::int32_t kCategory = 1;
constexpr std::int32_t kBudgeted = 2;
constexpr std::int32_t kActual = 7;
constexpr std::int32_t kDifference = 8;
constexpr std::int32_t kOriginalAmount = 2;
constexpr std::int32_t kPaidAmount = 3;
constexpr std::int32_t kLoanBalance = 7;
constexpr std::int32_t kTransactionCategory = 5;

constexpr const char* kLineBreak = "\r\n";

/// A difference of amounts without what binary fractions add, where an amount holds it.
double WithoutNoise(double difference)
{
    return std::abs(difference) < 9e14 ? Money::FromDouble(difference).ToDouble() : difference;
}

}  // namespace

void frmController::WireGrid()
{
    Control& grid = Grid.Component();
    Grid.Component().FocusWanted().connect([this] { window.Focus(Grid.Component()); });
    grid.GotFocus().connect([this] {
        if (Grid.Component().Row() != 0)
            Grid.RowColChange().emit(static_cast<std::int32_t>(Grid.Component().Row()),
                                     Grid.Component().Col());
    });
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
                                          Value& value) { FetchComputed(row, column, value); });
    Grid.FetchCellTip().connect([this](std::int32_t row, std::int32_t, std::int32_t,
                                       std::string& tip) { FetchTip(row, tip); });
    Grid.FetchGroupFooterText().connect(
        [this](std::int16_t, std::int32_t row, std::string& text) { FetchFooter(row, text); });
    Grid.Component().RowRestored().connect([this] { View().EnableDisable(); });
    Grid.Component().UpdateRefused().connect([this] {
        // Ignored while the row was being saved; now the cell to correct becomes current.
        Grid.Col(refusedColumn_);
        Grid.Editing(true);
    });
}

void frmController::CheckRow(bool& cancel)
{
    if (!others_->AgreeOnRow()) {
        refusedColumn_ = Grid.Component().Col();
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
    if (View().View() == vwAccount)
        OfferCategory(Grid.ColumnValue(kTransactionCategory));
}

void frmController::OfferCategory(const Value& category)
{
    if (IsEmpty(category))
        return;
    auto& items = Grid.Columns().Item(kTransactionCategory).valueItems;
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
    const std::int32_t view = View().View();
    const bool ofAccount = view == vwAccount || view == vwInvestment || view == vwLoan;
    if (ofAccount && balances_.Look(Data(), View().AccountID(), ports_.clock.Now()))
        ShowBalanceNotice();
}

bool frmController::ListsAccounts() const
{
    const std::int32_t view = globals_.view->View();
    return view == vwNetWorth || view == vwAccountType;
}

void frmController::RenameNoticedBalances()
{
    if (formerNumber_.empty())
        return;
    const std::int32_t column = View().View() == vwNetWorth ? 3 : 2;
    noticed_balances::FollowAccount(Data().Database(), formerNumber_,
                                    ToText(Grid.ColumnValue(column)));
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
    const bool netWorth = View().View() == vwNetWorth;
    const auto stored = [this](std::int32_t column) {
        return ToText(Grid.Rows().Stored(Grid.Component().Row(), column));
    };
    return clsView::AccountTag(clsView::ViewFromAccountType(stored(netWorth ? 2 : 6)),
                               StoredAccountNumber());
}

std::string frmController::StoredAccountNumber()
{
    const std::int32_t column = View().View() == vwNetWorth ? 3 : 2;
    return ToText(Grid.Rows().Stored(Grid.Component().Row(), column));
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

std::string frmController::ShownMonthOf(const std::string& prefix) const
{
    return prefix + "Year = " + std::to_string(globals_.view->Year()) + " AND " + prefix +
           "Period = " + std::to_string(globals_.view->Period());
}

Money frmController::SumOf(const std::string& sql, const char* field, const SummedAmounts& amounts)
{
    try {
        Recordset records;
        Data().Fill(records, sql, true);
        return ToMoney(records.Get(field));
    } catch (const EngineError& error) {
        ThrowWithPlace(Data().Database(), amounts, error);
    }
}

void frmController::FetchComputed(std::int32_t row, std::int32_t column, Value& value)
{
    const auto cell = [this, row](std::int32_t index) {
        return Grid.Component().CellValue(static_cast<std::size_t>(row), index);
    };
    const std::int32_t view = View().View();
    if (view == vwBudget && column == kActual) {
        const std::string category = ToText(cell(kCategory));
        const Money actual = SumOf(
            "SELECT SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON "
            "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND " +
                ShownMonthOf("") + " AND Category = '" + clsDatabase::ToSqlString(category) + "'",
            "TotActual", {"Trans", {"Amount"}, ShownMonthOf("")});
        lastActual_ = actual.ToDouble();
        value = actual;
    } else if (view == vwBudget && column == kDifference) {
        // Spent beyond the budget shows as the excess of actual over budgeted.
        value = WithoutNoise(lastActual_ - ToMoney(cell(kBudgeted)).ToDouble());
    } else if (view == vwLoan && column == kLoanBalance) {
        value = ToMoney(cell(kOriginalAmount)) - ToMoney(cell(kPaidAmount));
    }
}

void frmController::FetchTip(std::int32_t row, std::string& tip)
{
    const auto at = static_cast<std::size_t>(row);
    if (View().View() != vwBudget || Grid.Rows().Kind(at) == GridRowKind::GroupHeading)
        return;
    const std::string category = ToText(Grid.Component().CellValue(at, kCategory));
    Recordset records;
    Data().Fill(records,
                "SELECT PostDate, Trans.Description, Amount FROM Account INNER JOIN Trans ON "
                "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND " +
                    ShownMonthOf("") + " AND Trans.Category = '" +
                    clsDatabase::ToSqlString(category) + "'",
                true);
    tip = "Number of transactions: " + std::to_string(records.RecordCount());
    for (; !records.AtEnd(); records.MoveNext()) {
        tip += std::string(kLineBreak) + kLineBreak + "Date: " + ToText(records.Get(0)) +
               kLineBreak + "Description: " + ToText(records.Get(1)) + kLineBreak +
               "Amount: " + ToMoney(records.Get(2)).Dollars();
    }
}

void frmController::FetchFooter(std::int32_t row, std::string& text)
{
    if (View().View() != vwBudget)
        return;
    const std::string inGroup =
        " AND CategoryGroup = '" +
        clsDatabase::ToSqlString(Grid.Rows().GroupValue(static_cast<std::size_t>(row))) + "'";
    const Money budgeted =
        SumOf("SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE " + ShownMonthOf("") + inGroup,
              "TotAmount", {"Budget", {"Amount"}, ShownMonthOf("")});
    const Money actual = SumOf(
        "SELECT SUM( Trans.Amount ) AS TotAmount FROM Account INNER JOIN (Budget INNER JOIN Trans "
        "ON Budget.Category = Trans.Category AND Budget.Year = Trans.Year AND Budget.Period = "
        "Trans.Period) ON Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE "
        "AND " +
            ShownMonthOf("Trans.") + inGroup,
        "TotAmount", {"Trans", {"Amount"}, ShownMonthOf("")});
    text = "Total (budgeted/actual): " + budgeted.Dollars() + " / " + actual.Dollars();
}

}  // namespace clb
