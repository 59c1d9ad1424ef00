// The sum of the rows that the user has marked.
#pragma once

namespace clb {

class frmController;

/// Shows how many rows are marked, and their sum, in the status bar's second panel.
class MarkedSum {
public:
    /// Borrows the window, which outlives it.
    explicit MarkedSum(frmController& window) : window_(window) {}
    MarkedSum(const MarkedSum&) = delete;
    MarkedSum& operator=(const MarkedSum&) = delete;

    /// From now on the panel follows the marks.
    void Connect();

private:
    void Follow();

    frmController& window_;
};

}  // namespace clb
