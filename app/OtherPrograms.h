// Keeps the window up to date with what other programs write to the book.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/GridComponent.h"
#include "controls/Tree.h"
#include "ports/IMessageBox.h"

namespace clb {

class frmController;

/// Keeps the main window up to date with a book that other programs write to as well. What they
/// have written is shown before the user's next command and never overwritten silently.
class OtherPrograms {
public:
    /// Borrows both; they outlive it.
    OtherPrograms(frmController& window, IMessageBox& messages);
    ~OtherPrograms();

    /// Returns whether other programs have written since the last Follow. Never waits for a program
    /// that is writing at the moment.
    bool HaveWritten();
    /// Shows what other programs have written. Called before each command of the user. Does nothing
    /// while a row has unsaved changes. The selected node and the current row stay; if the shown
    /// account is gone, the first view is shown. A view that cannot be read becomes empty, and a
    /// tree that cannot be read stays as it is; neither is an error here. Returns false if the grid
    /// had the focus and its current row is gone, because a command that was meant for this row
    /// must not be applied to another one. Throws EngineError if it cannot find out whether other
    /// programs have written.
    bool Follow();
    /// Why the last Follow returned false, as a sentence.
    [[nodiscard]] const std::string& WhyRowGone() const { return whyRowGone_; }
    /// The same for a displayed row for which RowNow returns 0. Throws EngineError.
    [[nodiscard]] std::string WhyRowGone(std::size_t row) const;
    /// Called after the rows or the nodes were drawn or listed: from now on, the numbers of rows
    /// and nodes that come from outside are the present ones.
    void RowNumbersReported();
    void NodeNumbersReported() { nodes_.clear(); }
    /// Whether Follow is running. Events that are raised then are not actions of the user.
    [[nodiscard]] bool Following() const { return following_; }

    /// The present number of the row or node that had this number when the numbers were last
    /// reported. 0 if it is gone.
    [[nodiscard]] std::size_t RowNow(std::size_t row) const;
    [[nodiscard]] std::int32_t NodeNow(std::int32_t node) const;

    /// Called before the grid's current row is saved. Takes the write lock and compares the row
    /// with the stored one. If another program has changed the same cells, asks the user whose
    /// values to keep. If the row is gone, shows a message. Returns false if the row must not be
    /// saved.
    bool AgreeOnRow();

private:
    void FollowTree();
    bool KeepsRow(const GridSpot& before);
    [[nodiscard]] bool ShownAccountExists() const;
    bool Refuse(const char* why);
    [[nodiscard]] std::vector<std::int32_t> Disputed(
        const std::vector<std::int32_t>& columns) const;
    [[nodiscard]] const char* WhyAnotherRow(const std::vector<std::int32_t>& columns) const;
    [[nodiscard]] std::string Question(const std::vector<std::int32_t>& columns) const;

    frmController& window_;
    IMessageBox& messages_;
    std::uint64_t followed_ = 0;
    bool treeOutdated_ = false;  // the tree could not be read the last time
    std::string whyRowGone_;
    bool following_ = false;
    std::vector<TreeNode> nodes_;  // when their numbers were last reported; empty: the present ones
};

}  // namespace clb
