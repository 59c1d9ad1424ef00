// The state of the window's view, and what follows when it changes.
#pragma once
#include <sigc++/sigc++.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/IShownState.h"
#include "views/AccountTree.h"
#include "views/RunningBalance.h"
#include "views/ViewDefinition.h"
#include "views/ViewLayout.h"
#include "views/ViewTargets.h"

namespace clb {

class clsDatabase;

/// What the window shows: view, month, account type and account. Fills the tree and the grid, the
/// totals line and the enabled commands accordingly. Errors of the data store reach the caller.
class clsView : public IShownState, public sigc::trackable {
public:
    explicit clsView(const ViewTargets& targets);
    clsView(const clsView&) = delete;
    clsView& operator=(const clsView&) = delete;
    /// The store whose rows are shown; set once, before anything is shown. Borrowed.
    void Use(clsDatabase& database) { database_ = &database; }

    [[nodiscard]] std::int32_t View() const override { return view_; }
    /// Writing reloads the grid, even with the same value; so do Period and Year.
    void View(std::int32_t view);
    [[nodiscard]] std::int32_t Period() const override { return period_; }
    void Period(std::int32_t month);
    [[nodiscard]] std::int32_t Year() const override { return year_; }
    void Year(std::int32_t year);
    /// Writing these two does not reload.
    [[nodiscard]] const std::string& AccountType() const override { return accountType_; }
    void AccountType(const std::string& type) { accountType_ = type; }
    [[nodiscard]] const std::string& AccountID() const override { return accountID_; }
    void AccountID(const std::string& id) { accountID_ = id; }
    /// While true nothing reloads; writing false reloads once.
    void HoldRefresh(bool hold);
    [[nodiscard]] bool HoldRefresh() const { return hold_; }
    /// What the shown view is like; a definition without anything if no view is shown.
    [[nodiscard]] const ViewDefinition& Definition() const { return DefinitionOf(view_); }

    /// Loads the grid, totals, layout and commands for what is to be shown. If that fails the grid
    /// is empty, without columns, until the view is shown again.
    void Refresh();
    /// Why the grid is empty: the error that the view could not be read for. Empty if it was read.
    [[nodiscard]] const std::string& WhyEmpty() const { return whyEmpty_; }
    /// Empties the grid if its rows were to be read again and could not. Called after each command.
    void DropClosedRows() noexcept;
    /// Reads what is shown again because another program has written it: rows, totals, lists,
    /// enabled commands. The user's place and the layout stay, and no event is raised. Does nothing
    /// while the current row has unsaved changes or a cell is in edit. A view that could not be
    /// read is loaded as by Refresh.
    void ReadAnew();

    /// Fills the tree from the accounts; the root is then selected. If they cannot be read the tree
    /// stays as it was.
    void BuildTree();
    /// False if the last BuildTree was interrupted half-way, for lack of memory.
    [[nodiscard]] bool TreeIsWhole() const { return accountTree_.IsWhole(); }
    /// Whether the tree lists the accounts as they are stored now.
    bool TreeIsCurrent() { return accountTree_.IsCurrent(*database_); }
    /// The tree's node for what is shown, made from the view's own state: tag, text and key.
    [[nodiscard]] TreeNode ShownNode() const;
    /// 4, 5 or 6 for the five account types, compared exactly; 0 for any other text.
    static std::int32_t ViewFromAccountType(std::string_view type);
    /// Number of the first node with the tag; 0 if there is none.
    [[nodiscard]] std::int32_t FindTreeNodeByTag(const std::string& tag) const
    {
        return accountTree_.Find(tag);
    }
    /// Piece of the selected node's tag: 0 the view identifier, 1 the account. Throws RuntimeError
    /// (SubscriptOutOfRange) for a piece that the tag does not have.
    [[nodiscard]] std::string GetTreeNodeAccountInfo(std::int32_t index) const
    {
        return accountTree_.SelectedTagPiece(index);
    }

    /// Sets column widths as the view's fractions of the grid's width, and places the totals below
    /// their columns. A width that the user gave a column by hand replaces its fraction.
    void SetColWidths() { layout_.SetColWidths(Definition()); }
    using HandWidths = ViewLayout::HandWidths;
    [[nodiscard]] const HandWidths& WidthsByHand() const { return layout_.WidthsByHand(); }
    /// Sets them again after a new start. Columns that a view does not have are ignored, and no
    /// width is less than the grid's least.
    void WidthsByHand(const HandWidths& widths);
    /// Writes the shown view's totals into the totals line.
    void RefreshTotals();

    /// What the grid asks for while it is drawn, for a displayed row: the value of a calculated
    /// cell, the tip of the row's cells and the text of a group's footer. What the view does not
    /// have stays as passed.
    void FetchCell(std::int32_t row, std::int32_t column, Value& value);
    void FetchTip(std::int32_t row, std::string& tip);
    void FetchFooter(std::int32_t row, std::string& text);
    /// Whether the view draws a figure as a warning. Nothing if it leaves that to the figure's
    /// sign.
    [[nodiscard]] std::optional<bool> Warns(std::size_t row, std::int32_t column);

    /// Enables the commands that make sense for the current row and the focus, and shows a hint for
    /// them in the status bar.
    void EnableDisable();
    /// Asks whether the record may be deleted and lets the data store follow up; false if the user
    /// declines.
    bool DeleteRow();
    [[nodiscard]] bool ExportAllowed() const { return exportAllowed_; }

    /// Raised after a reload, and after the tree was rebuilt.
    Event<void()> Refreshed() { return refreshed_; }
    Event<void()> TreeBuilt() { return treeBuilt_; }

private:
    template <class Work>
    void OrShowNothing(const Work& work);
    void ShowNothing(const char* why) noexcept;
    void ShowSights();
    void SortAgain(const GridSort& sort);
    DrawnRow Drawn(std::int32_t row);
    void DecideExport();
    bool OnStoredRow();
    [[nodiscard]] bool GridHasFocus() const;

    ViewTargets targets_;
    AccountTree accountTree_;
    ViewLayout layout_;
    clsDatabase* database_ = nullptr;
    std::int32_t view_ = 0;
    std::int32_t period_ = 0;
    std::int32_t year_ = 0;
    std::string accountType_;
    std::string accountID_;
    bool hold_ = false;
    std::string whyEmpty_;
    bool exportAllowed_ = false;
    double lastActual_ = 0;
    RunningBalance running_;
    std::int32_t sortedView_ = 0;  // that was shown last, whose order is kept
    sigc::signal<void()> refreshed_;
    sigc::signal<void()> treeBuilt_;
};

}  // namespace clb
