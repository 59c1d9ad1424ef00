// The order in which a grid shows its rows.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Value.h"

namespace clb {

/// The column that the rows are shown by. 0: the order of the source.
struct GridSort {
    std::int32_t column = 0;
    bool descending = false;
    bool operator==(const GridSort&) const = default;
};

/// Sorts rows of the source by their keys: nothing first, then numbers and dates by value and texts
/// alphabetically. Rows with equal keys keep their order. keys[i] belongs to row i of the source.
void SortRecords(std::vector<std::size_t>& records, const std::vector<Value>& keys,
                 bool descending);

}  // namespace clb
