// The grid as an HTML page for printing.
#pragma once
#include <string>
#include <vector>

#include "controls/GridComponent.h"

namespace clb {

/// What is printed around a grid's rows.
struct GridPage {
    /// An amount below one of the columns.
    struct Total {
        std::int32_t column = 0;
        std::string amount;
    };
    std::string title;
    std::string subtitle;    ///< below the title; empty: none
    std::string totalLabel;  ///< left of the first amount
    std::vector<Total> totals;
};

/// Writes the grid as an HTML document, ready to be printed: the visible columns with their
/// captions in displayed order, all rows that are not folded away, with group headings and footers,
/// and the totals below their columns. Calculated cells and footers are fetched. The line for a new
/// row is not printed.
std::string GridHtml(GridComponent& grid, const GridPage& page);

}  // namespace clb
