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

/// Keeps the main window true to a book that other programs write to as well: what they wrote is
/// shown before the user's next command, and what they wrote is never overwritten in silence.
class OtherPrograms {
public:
    /// Both borrowed; they outlive it.
    OtherPrograms(frmController& window, IMessageBox& messages);
    ~OtherPrograms();

    /// Whether other programs have written since Follow last showed it. Never waits for a program
    /// that is writing at the moment.
    bool HaveWritten();
    /// Shows what other programs have written. To be called before each command of the user. A row
    /// with unsaved changes keeps everything as it is until it is saved or given up. The user's
    /// place stays; an account that is gone gives its place to the first view. A view that cannot
    /// be read becomes empty, a tree that cannot be read stays as it is; neither is an error here.
    /// Returns false if the grid had the focus and its current row is gone: a command that was
    /// meant for this row must not reach the one that took its place. Throws EngineError if the
    /// file cannot be asked whether others have written.
    bool Follow();
    /// Why Follow last returned false, as a sentence.
    [[nodiscard]] const std::string& WhyRowGone() const { return whyRowGone_; }
    /// The same of a displayed row for which RowNow returns 0. Throws EngineError.
    [[nodiscard]] std::string WhyRowGone(std::size_t row) const;
    /// Says that whoever names rows or nodes by number knows the present numbers: they were drawn,
    /// or listed.
    void RowNumbersTold();
    void NodeNumbersTold() { nodes_.clear(); }
    /// Follow is at work: what is raised meanwhile was not done by the user.
    [[nodiscard]] bool Following() const { return following_; }

    /// The number that a displayed row or a node of the tree has now, if it had this number when
    /// the numbers were last told. 0 if it is gone.
    [[nodiscard]] std::size_t RowNow(std::size_t row) const;
    [[nodiscard]] std::int32_t NodeNow(std::int32_t node) const;

    /// Before the grid's current row is saved: takes the write lock and compares the row with what
    /// is stored. For cells that another program has changed as well, the user chooses whose stay;
    /// of a row that is gone the user is told. False when the row must not be saved.
    bool AgreeOnRow();

private:
    void FollowTree();
    bool KeepsRow(const GridSpot& before);
    [[nodiscard]] bool HasShownAccount() const;
    bool Refuse(const char* why);
    [[nodiscard]] std::vector<std::int32_t> Disputed(
        const std::vector<std::int32_t>& columns) const;
    [[nodiscard]] const char* WhyAnotherRow(const std::vector<std::int32_t>& columns) const;
    [[nodiscard]] std::string Question(const std::vector<std::int32_t>& columns) const;

    frmController& window_;
    IMessageBox& messages_;
    std::uint64_t followed_ = 0;
    bool treeBehind_ = false;  ///< the tree could not be read when it was last to be
    std::string whyRowGone_;
    bool following_ = false;
    std::vector<TreeNode> nodes_;  ///< of the tree when its numbers were told; empty: as now
};

}  // namespace clb
