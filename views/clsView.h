#pragma once
#include <sigc++/sigc++.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "controls/Commands.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Tree.h"
#include "data/IShownState.h"
#include "grid/CVGrid.h"
#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;

/// The controls of the main window that the view sets. All borrowed; they outlive the view.
struct ViewTargets {
    Form& window;
    CVGrid& grid;
    Tree& tree;
    Label& lblTotal;
    TextBox& txtTotal;
    TextBox& txtTotal2;
    ListBox& cmbPeriod;
    TextBox& txtYear;
    MenuBar& menus;
    Toolbar& toolbar;
    StatusBar& statusBar;
    IMessageBox& messages;
    std::string title;  ///< of message boxes
};

/// What the window shows: view, month, account type and account. Fills the tree and the grid, the
/// totals line and the enabled commands accordingly. Errors of the data store reach the caller.
class clsView : public IShownState, public sigc::trackable {
public:
    explicit clsView(const ViewTargets& targets);
    /// The store whose rows are shown; set once, before anything is shown. Borrowed.
    void Use(clsDatabase& database) { database_ = &database; }

    std::int32_t View() const override { return view_; }
    /// Writing reloads the grid, even with the same value; so do Period and Year.
    void View(std::int32_t view);
    std::int32_t Period() const override { return period_; }
    void Period(std::int32_t month);
    std::int32_t Year() const override { return year_; }
    void Year(std::int32_t year);
    /// Writing these two does not reload.
    const std::string& AccountType() const override { return accountType_; }
    void AccountType(const std::string& type) { accountType_ = type; }
    const std::string& AccountID() const override { return accountID_; }
    void AccountID(const std::string& id) { accountID_ = id; }
    /// While true nothing reloads; writing false reloads once.
    void HoldRefresh(bool hold);
    bool HoldRefresh() const { return hold_; }

    /// Loads the grid, totals, layout and commands for what is to be shown. If that fails the grid
    /// is empty, without columns, until the view is shown again.
    void Refresh();
    /// Why the grid is empty: the error that the view could not be read for. Empty if it was read.
    const std::string& WhyEmpty() const { return whyEmpty_; }
    /// Empties the grid if its rows were to be read again and could not. Called after each command.
    void DropClosedRows() noexcept;
    /// Fills the tree from the accounts; the root is then selected. If they cannot be read the tree
    /// stays as it was.
    void BuildTree();
    /// False if the last BuildTree was broken off in the middle, for lack of memory.
    bool TreeIsWhole() const { return treeIsWhole_; }
    /// The tree's node of what is shown, made up from the view's own state: tag, text and key.
    TreeNode ShownNode() const;
    /// Whether the tree lists the accounts as they are stored now.
    bool TreeIsCurrent();
    /// Reads what is shown again because another program has written it: rows, totals, lists,
    /// enabled commands. The user's place and the layout stay; nothing is raised. Does nothing for
    /// the rows while one has unsaved changes. A view that could not be read is loaded as by
    /// Refresh.
    void ReadAnew();
    /// 4, 5 or 6 for the five account types, compared exactly; 0 for any other text.
    static std::int32_t ViewFromAccountType(const std::string& type);
    /// Number of the first node with the tag; 0 when there is none.
    std::int32_t FindTreeNodeByTag(const std::string& tag) const;
    /// Tag of the node of an account.
    static std::string AccountTag(std::int32_t view, const std::string& accountID);
    /// Piece of the selected node's tag: 0 the view identifier, 1 the account. Throws RuntimeError
    /// (SubscriptOutOfRange) for a piece that the tag does not have.
    std::string GetTreeNodeAccountInfo(std::int32_t index) const;

    /// Column widths as the view's fractions of the grid's width, the totals line below the
    /// columns. A width that the user gave a column by hand replaces its fraction in that view.
    void SetColWidths();
    /// Widths in pixels that the user gave columns by hand, by view and column.
    using HandWidths = std::map<std::int32_t, std::map<std::int32_t, std::int32_t>>;
    const HandWidths& WidthsByHand() const { return handWidths_; }
    /// Gives them back after a new start. Columns that a view does not have are passed over, and no
    /// width is less than the grid's least.
    void WidthsByHand(const HandWidths& widths);
    /// Columns below which the two totals stand; 0 for a total that the view does not have.
    std::pair<std::int32_t, std::int32_t> TotalColumns() const;
    /// Writes the shown view's totals into the totals line.
    void RefreshTotals();
    /// Enables what makes sense for the current row and focus, and tells it in the status bar.
    void EnableDisable();
    /// Asks whether the record may be deleted and lets the data store follow it up; false when the
    /// user declines.
    bool DeleteRow();
    bool ExportAllowed() const { return exportAllowed_; }

    /// Raised after a reload, and after the tree was rebuilt.
    sigc::signal<void()>& Refreshed() { return refreshed_; }
    sigc::signal<void()>& TreeBuilt() { return treeBuilt_; }

private:
    template <class Work>
    void OrShowNothing(const Work& work);
    void ShowNothing(const char* why) noexcept;
    void LayOut();
    void LayOutAccount();
    void ListCategories();
    void LayOutLoan();
    void LayOutInvestment();
    void LayOutAccountType();
    void LayOutBudget();
    void LayOutNetWorth();
    std::int32_t AddCalculatedColumn();
    void Caption(std::int32_t column, const char* caption);
    void Hide(std::int32_t first, std::int32_t last);
    void PlaceTotals(std::int32_t first, std::int32_t second);
    void KeepWidth(std::int32_t column, std::int32_t pixels);
    /// An account's line in the tree.
    struct TreeLine {
        std::string type;
        std::string text;
        std::string tag;
        bool operator==(const TreeLine&) const = default;
    };
    std::vector<TreeLine> TreeLines();
    std::int32_t AddNode(std::int32_t parent, const std::string& key, const std::string& text,
                         const std::string& tag);
    void DecideExport();
    bool OnStoredRow();
    bool GridHasFocus() const;
    void EnableItem(const char* item, bool enabled);

    ViewTargets targets_;
    clsDatabase* database_ = nullptr;
    std::int32_t view_ = 0;
    std::int32_t period_ = 0;
    std::int32_t year_ = 0;
    std::string accountType_;
    std::string accountID_;
    bool hold_ = false;
    bool treeIsWhole_ = false;
    std::string whyEmpty_;
    bool exportAllowed_ = false;
    HandWidths handWidths_;
    sigc::signal<void()> refreshed_;
    sigc::signal<void()> treeBuilt_;
};

}  // namespace clb
