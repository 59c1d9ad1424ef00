// What follows when a row of the grid is entered, saved or deleted.
#pragma once
#include <cstdint>
#include <string>

#include "app/BalanceWatch.h"
#include "base/Value.h"
#include "grid/CVGrid.h"

namespace clb {

class frmController;

/// Answers the grid's events: rows are checked before they are saved, and balances, totals, the
/// tree and the enabled commands follow.
class RowEvents {
public:
    /// Borrows the window, which outlives it.
    explicit RowEvents(frmController& window) : window_(window) {}
    RowEvents(const RowEvents&) = delete;
    RowEvents& operator=(const RowEvents&) = delete;

    /// From now on the grid's events are answered.
    void Connect();
    /// The command was broken off: a deletion that it began does not end.
    void BreakOff() { pendingTreeNode_ = 0; }
    /// Balances that were looked at may have been taken back.
    void ForgetBalances() { balances_.Forget(); }

private:
    void ConnectEnabling();
    void ConnectDrawing();
    void CheckRow(bool& cancel);
    bool IsValid();
    void OfferCategory(const Value& category);
    void ToCellToCorrect();
    void RowSaved();
    void ShowSavedAccount();
    [[nodiscard]] std::string StepName() const;
    void RenameNoticedBalances();
    void CheckDeletion(bool& cancel);
    void RowDeleted();
    void UpdateShownBalance();
    void WatchShownBalance();
    [[nodiscard]] bool ListsAccounts() const;
    /// Number and tag of the account in the grid's current row as it is stored, whatever was typed
    /// over it.
    [[nodiscard]] std::string StoredAccountNumber() const;
    [[nodiscard]] std::string StoredAccountTag() const;

    frmController& window_;
    BalanceWatch balances_;
    std::string formerNumber_;                   // of the account being saved; empty for a new one
    std::int32_t pendingTreeNode_ = 0;           // node of the account being deleted
    std::int32_t refusedColumn_ = kFirstColumn;  // cell to correct in a refused row
};

}  // namespace clb
