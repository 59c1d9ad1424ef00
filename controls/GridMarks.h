// The rows of a grid that the user has marked.
#pragma once
#include <cstddef>
#include <set>

#include "controls/Event.h"

namespace clb {

class GridRows;

/// The marked data rows of a grid, by their identities, so that they stay marked when the rows
/// move.
class GridMarks {
public:
    /// Marks a data row, or unmarks it. The first row that is marked takes the row with the
    /// identity `from` with it. Rows of other kinds do nothing.
    void Toggle(const GridRows& rows, std::size_t row, std::size_t from);
    /// Marks exactly the data rows between a row and the one that the marks began with, which is
    /// `from` if nothing is marked.
    void Extend(const GridRows& rows, std::size_t row, std::size_t from);
    void Clear();

    [[nodiscard]] std::size_t Count() const { return marked_.size(); }
    /// Whether the row with this identity is marked; false for 0.
    [[nodiscard]] bool Contains(std::size_t identity) const { return marked_.contains(identity); }
    /// Raised when other rows are marked.
    Event<void()> Changed() { return changed_; }

private:
    std::set<std::size_t> marked_;
    std::size_t anchor_ = 0;  // identity of the row that a range begins with
    sigc::signal<void()> changed_;
};

}  // namespace clb
