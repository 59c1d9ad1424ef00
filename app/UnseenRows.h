// The imported transactions that the user has not looked at yet.
#pragma once
#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "app/NewRows.h"

namespace clb {

class frmController;

/// Keeps which imported transactions were never the current row of a register, until the program
/// ends.
class UnseenRows {
public:
    /// Borrows the window, which outlives it.
    explicit UnseenRows(frmController& window) : window_(window) {}

    /// From now on the grid marks the rows, and each one until it was the current row and another
    /// one is.
    void Connect();
    /// Takes rows that this step of the history has added.
    void Add(const NewRows& rows, std::int64_t step);
    /// Forgets the rows of steps that were undone. Called after each command. Throws EngineError.
    void Follow();

private:
    struct Import {
        NewRows rows;
        std::int64_t step = 0;
    };

    [[nodiscard]] bool IsUnseen(std::size_t row) const;
    void Visit();

    frmController& window_;
    std::vector<Import> imports_;
    std::set<std::size_t> seen_;  ///< identities
    std::size_t current_ = 0;     ///< of the current row, if it is seen for the first time
};

}  // namespace clb
