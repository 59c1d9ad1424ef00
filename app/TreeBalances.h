// The balances beside the tree's accounts.
#pragma once

namespace clb {

class frmController;

/// Writes the balance of each account beside its node, and the sums beside the account types and
/// the root. The nodes' texts stay as they are.
class TreeBalances {
public:
    /// Borrows the window, which outlives it.
    explicit TreeBalances(frmController& window) : window_(window) {}
    TreeBalances(const TreeBalances&) = delete;
    TreeBalances& operator=(const TreeBalances&) = delete;

    /// Reads the balances, if a person looks at the window. Throws EngineError.
    void Follow();

private:
    frmController& window_;
};

}  // namespace clb
