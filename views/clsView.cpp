#include "views/clsView.h"

#include "base/Numeric.h"
#include "base/Quietly.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr char kTagDivider = '\x01';
constexpr std::int32_t kImage = 6;
constexpr std::int32_t kSelectedImage = 7;
constexpr const char* kUnread = "The rows could not be read.";

}  // namespace

clsView::clsView(const ViewTargets& targets) : targets_(targets)
{
    targets_.grid.Component().ColumnResized().connect(sigc::track_obj(
        [this](std::int32_t column, std::int32_t pixels) { KeepWidth(column, pixels); }, *this));
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
    targets_.grid.RedrawEnabled(false);
    OrShowNothing([this] {
        targets_.grid.CancelEdit();
        targets_.grid.DataSource(database_->GetRows());
        RefreshTotals();
        LayOut();
        EnableDisable();
        whyEmpty_.clear();
    });
    targets_.grid.RedrawEnabled(true);
    refreshed_.emit();
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
    Quietly([this] {
        if (targets_.grid.Component().Redraw())
            targets_.grid.RedrawEnabled(false);
    });
    Quietly([this] { targets_.grid.Component().DataSource(nullptr); });
    Quietly([&] { whyEmpty_ = why; });
    // Without a view there are no totals that could be others, and those shown stay.
    if (view_ >= vwNetWorth && view_ <= vwLoan) {
        Quietly([this] { targets_.lblTotal.Caption(""); });
        Quietly([this] { targets_.txtTotal.Text(""); });
        Quietly([this] { targets_.txtTotal2.Text(""); });
    }
    Quietly([this] { EnableDisable(); });
    Quietly([this] { targets_.grid.RedrawEnabled(true); });
}

void clsView::DropClosedRows() noexcept
{
    if (!targets_.grid.Component().Bound() && whyEmpty_.empty())
        ShowNothing(kUnread);
}

std::int32_t clsView::ViewFromAccountType(const std::string& type)
{
    if (type == "Bank" || type == "Cash" || type == "Credit Card")
        return vwAccount;
    if (type == "Investment")
        return vwInvestment;
    return type == "Loan" ? vwLoan : 0;
}

std::string clsView::AccountTag(std::int32_t view, const std::string& accountID)
{
    return std::to_string(view) + kTagDivider + accountID;
}

std::int32_t clsView::AddNode(std::int32_t parent, const std::string& key, const std::string& text,
                              const std::string& tag)
{
    const std::int32_t node = targets_.tree.Add(parent, key, text, kImage, kSelectedImage);
    targets_.tree.Tag(node, tag);
    return node;
}

void clsView::BuildTree()
{
    // Read first: an error leaves the tree as it was.
    const std::vector<TreeLine> lines = TreeLines();
    Tree& tree = targets_.tree;
    const Tree::Batch batch(tree);
    treeIsWhole_ = false;
    tree.Clear();
    const std::int32_t root = AddNode(0, "", "Net Worth", std::to_string(vwNetWorth));
    tree.Expand(root, true);
    AddNode(root, "", "Budget", std::to_string(vwBudget));

    std::string previousType;
    std::int32_t typeNode = root;
    for (const TreeLine& line : lines) {
        if (line.type != previousType) {
            previousType = line.type;
            typeNode = AddNode(root, line.type, line.type, std::to_string(vwAccountType));
            tree.Expand(typeNode, true);
        }
        AddNode(typeNode, "", line.text, line.tag);
    }
    treeIsWhole_ = true;
    treeBuilt_.emit();
}

TreeNode clsView::ShownNode() const
{
    TreeNode node;
    const bool account = view_ == vwAccount || view_ == vwInvestment || view_ == vwLoan;
    node.tag = account ? AccountTag(view_, accountID_) : std::to_string(view_);
    if (view_ == vwAccountType)
        node.key = node.text = accountType_;
    return node;
}

std::vector<clsView::TreeLine> clsView::TreeLines()
{
    Recordset accounts;
    database_->Fill(accounts, "SELECT * FROM Account ORDER BY Type, Description", true);
    std::vector<TreeLine> lines;
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const std::string type = ToText(accounts.Get("Type"));
        lines.push_back({type, ToText(accounts.Get("Description")),
                         AccountTag(ViewFromAccountType(type), ToText(accounts.Get("AccountID")))});
    }
    return lines;
}

bool clsView::TreeIsCurrent()
{
    const Tree& tree = targets_.tree;
    std::vector<TreeLine> shown;
    for (std::int32_t node = 1; node <= tree.Count(); ++node)
        if (const TreeNode& line = tree.Node(node); line.tag.find(kTagDivider) != line.tag.npos)
            shown.push_back({line.parent > 1 ? tree.Node(line.parent).text : std::string(),
                             line.text, line.tag});
    return shown == TreeLines();
}

void clsView::ReadAnew()
{
    GridComponent& grid = targets_.grid.Component();
    if (grid.Dirty() || grid.Editing())
        return;
    if (!grid.Bound())
        return Refresh();
    OrShowNothing([&] {
        database_->RowsRead();
        grid.ReadRowsAnew();
        RefreshTotals();
        if (view_ == vwAccount)
            ListCategories();
        EnableDisable();
    });
}

std::int32_t clsView::FindTreeNodeByTag(const std::string& tag) const
{
    for (std::int32_t node = 1; node <= targets_.tree.Count(); ++node)
        if (targets_.tree.Node(node).tag == tag)
            return node;
    return 0;
}

std::string clsView::GetTreeNodeAccountInfo(std::int32_t index) const
{
    const auto pieces = Split(targets_.tree.Node(targets_.tree.Selected()).tag, kTagDivider);
    if (index < 0 || index >= static_cast<std::int32_t>(pieces.size()))
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return pieces[static_cast<std::size_t>(index)];
}

void clsView::RefreshTotals()
{
    Money first;
    Money second;
    database_->CalcTotals(first, second);
    targets_.txtTotal.Text(first.Grouped());
    targets_.txtTotal2.Text(second.Grouped());
}

bool clsView::OnStoredRow()
{
    return targets_.grid.Component().Position() != 1;
}

void clsView::DecideExport()
{
    switch (view_) {
        case vwNetWorth:
        case vwAccountType: {
            exportAllowed_ = OnStoredRow();
            if (!exportAllowed_)
                break;
            const bool netWorth = view_ == vwNetWorth;
            accountID_ = ToText(targets_.grid.ColumnValue(netWorth ? 3 : 2));
            accountType_ = ToText(targets_.grid.ColumnValue(netWorth ? 2 : 6));
            break;
        }
        case vwBudget: exportAllowed_ = false; break;
        case vwAccount: exportAllowed_ = true; break;
        // Allowed for the account, but refused below for its type.
        case vwInvestment:
            exportAllowed_ = true;
            accountType_ = "Investment";
            break;
        case vwLoan:
            exportAllowed_ = true;
            accountType_ = "Loan";
            break;
        default: break;
    }
}

void clsView::EnableItem(const char* item, bool enabled)
{
    if (MenuItem* line = targets_.menus.Find(item))
        line->Enabled(enabled);
}

bool clsView::GridHasFocus() const
{
    return targets_.window.Focus() == &targets_.grid.Component();
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
    const bool canNew = !inGrid || hasRow;
    const bool canDelete = inGrid && hasRow && !editing;
    const bool onTransaction = inGrid && hasRow && view_ == vwAccount;

    EnableItem("mnuE_New", canNew);
    EnableItem("mnuE_Delete", canDelete);
    for (const char* item : {"mnuE_MovePrev", "mnuE_MoveNext", "mnuE_Split"})
        EnableItem(item, onTransaction);
    targets_.statusBar.Panel(1, inGrid ? "Double click or press F2 to edit cell content."
                                       : "Select an item to work with.");
    targets_.toolbar.ButtonEnabled("New", canNew);
    targets_.toolbar.ButtonEnabled("Delete", canDelete);

    const bool exportable =
        accountType_ == "Credit Card" || accountType_ == "Cash" || accountType_ == "Bank";
    EnableItem("mnuF_Export", exportable && exportAllowed_ && !editing);
}

}  // namespace clb
