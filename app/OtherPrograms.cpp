#include "app/OtherPrograms.h"

#include <algorithm>

#include "app/RowFate.h"
#include "app/TreePlaces.h"
#include "app/frmController.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "data/ViewColumns.h"

namespace clb {
namespace {

constexpr const char* kGone =
    "Another program has deleted this record. What you typed is not saved. Press Escape to give it "
    "up, or note it down and enter it as a new record.";

constexpr const char* kMoved =
    "Another program has moved this record to another account. What you typed is not saved. Press "
    "Escape to give it up, then look for it there.";

constexpr const char* kReplaced =
    "Another program has deleted this record, or made another one of it. What you typed is not "
    "saved. Press Escape to give it up, or note it down and enter it as a new record.";

const std::string kAnother = "Another program has ";

constexpr const char* kAccountGone =
    "Another program has deleted this account or given it another number. What you typed is not "
    "saved. Press Escape to give it up, then open the account again.";

/// Sets a flag to true until it is destroyed.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

/// Runs the work. Returns false if it throws an error that a command would report.
template <class Work>
bool Succeeds(const Work& work)
{
    try {
        work();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

OtherPrograms::OtherPrograms(frmController& window, IMessageBox& messages)
    : window_(window), messages_(messages)
{
}

OtherPrograms::~OtherPrograms() = default;

bool OtherPrograms::HaveWritten()
{
    return window_.Loaded() && window_.Data().WritesElsewhere() != followed_;
}

bool OtherPrograms::Follow()
{
    const GridComponent& grid = window_.Grid;
    if ((!HaveWritten() && !treeOutdated_) || grid.Dirty() || grid.Editing())
        return true;
    const bool inGrid = window_.window.Focus() == &grid;
    const GridSpot current = grid.CurrentSpot();
    const std::uint64_t written = window_.Data().WritesElsewhere();
    const Connection::Untraced untraced(window_.Data().Database());
    const Raised following(following_);
    treeOutdated_ = !Succeeds([this] { FollowTree(); });
    Succeeds([this] { window_.View().ReadAnew(); });
    Succeeds([this] { window_.ShowBalanceNotice(); });
    followed_ = written;
    return !inGrid || KeepsRow(current);
}

bool OtherPrograms::KeepsRow(const GridSpot& before)
{
    if (!window_.View().WhyEmpty().empty()) {
        whyRowGone_ = window_.View().WhyEmpty();
        return false;
    }
    const GridSpot now = window_.Grid.CurrentSpot();
    if (before.identity == 0 || (now.identity == before.identity && now.key == before.key))
        return true;
    whyRowGone_ = kAnother + FateOf(before, "the current row", window_.Data(), window_.View());
    return false;
}

std::string OtherPrograms::WhyRowGone(std::size_t row) const
{
    return kAnother + FateOf(window_.Grid.ReportedSpot(row), "row " + std::to_string(row),
                             window_.Data(), window_.View());
}

void OtherPrograms::RowNumbersReported()
{
    window_.Grid.NumbersReported();
}

void OtherPrograms::FollowTree()
{
    clsView& view = window_.View();
    if (view.TreeIsCurrent())
        return;
    Tree& tree = window_.TreeView;
    const std::int32_t selected = tree.Selected();
    const TreeNode before = tree.Node(selected);
    if (nodes_.empty())
        for (std::int32_t node = 1; node <= tree.Count(); ++node)
            nodes_.push_back(tree.Node(node));
    view.BuildTree();
    const std::int32_t now = NodeLike(tree, before, selected);
    if (now != 0)
        tree.Select(now);
    // The shown account is gone or has another number now.
    if (now == 0 || tree.Node(now).tag != before.tag)
        window_.ShowSelected();
}

std::size_t OtherPrograms::RowNow(std::size_t row) const
{
    return window_.Grid.RowNow(row);
}

std::int32_t OtherPrograms::NodeNow(std::int32_t node) const
{
    if (node < 1 || static_cast<std::size_t>(node) > nodes_.size())
        return node;
    return NodeLike(window_.TreeView, nodes_[static_cast<std::size_t>(node - 1)], node);
}

bool OtherPrograms::AgreeOnRow()
{
    GridComponent& grid = window_.Grid;
    for (;;) {
        window_.Data().Lock();
        if (!window_.Data().RowsOutdated())
            return true;
        if (!ShownAccountExists())
            return Refuse(kAccountGone);
        const GridComponent::Meanwhile found = grid.RereadRow();
        if (found.gone)
            return Refuse(kGone);
        if (const char* const why = WhyAnotherRow(found.columns))
            return Refuse(why);
        const std::vector<std::int32_t> disputed = Disputed(found.columns);
        if (disputed.empty())
            return true;
        const BoxAnswer answer = messages_.Show(
            Question(disputed), box_style::YesNo + box_style::Question, product::kTitle);
        if (answer != BoxAnswer::Yes)
            for (const std::int32_t column : disputed)
                grid.TakeStored(column);
        // The lock was given up for the question, so the row is compared once more.
    }
}

bool OtherPrograms::Refuse(const char* why)
{
    messages_.Show(why, box_style::Exclamation, product::kTitle);
    return false;
}

/// True in views that do not show a single account.
bool OtherPrograms::ShownAccountExists() const
{
    if (!window_.View().Definition().ofAccount)
        return true;
    const Connection::Untraced untraced(window_.Data().Database());
    return window_.Data().RowExists(
        "Account", "AccountID = '" + clsDatabase::ToSqlString(window_.View().AccountID()) + "'");
}

std::vector<std::int32_t> OtherPrograms::Disputed(const std::vector<std::int32_t>& columns) const
{
    GridComponent& grid = window_.Grid;
    std::vector<std::int32_t> disputed;
    for (const std::int32_t column : columns)
        if (grid.Typed(column) && grid.ColumnValue(column) != grid.Stored(column))
            disputed.push_back(column);
    return disputed;
}

/// Decides whether the stored row is another transaction than the one in edit: the numbers of
/// deleted transactions and their places in the file are used again. Returns nullptr if it is the
/// same transaction, changed or not.
const char* OtherPrograms::WhyAnotherRow(const std::vector<std::int32_t>& columns) const
{
    if (!window_.View().Definition().transactions)
        return nullptr;
    const auto differs = [&columns](std::int32_t column) {
        return std::find(columns.begin(), columns.end(), column) != columns.end();
    };
    if (differs(Register::Fitid) || (differs(Register::PostDate) &&
                                     differs(Register::Description) && differs(Register::Amount)))
        return kReplaced;
    return differs(Register::AccountID) ? kMoved : nullptr;
}

std::string OtherPrograms::Question(const std::vector<std::int32_t>& columns) const
{
    GridComponent& grid = window_.Grid;
    std::string text = "Another program has changed this record meanwhile.\n";
    for (const std::int32_t column : columns)
        text += "\n" + grid.Columns().Item(column).caption + ": you entered " +
                grid.ShownText(grid.ColumnValue(column), column) + ", the other program " +
                grid.ShownText(grid.Stored(column), column) + ".";
    return text + "\n\nDo you want to keep what you entered?";
}

}  // namespace clb
