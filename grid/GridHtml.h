#pragma once
#include <string>
#include <vector>

#include "controls/GridComponent.h"

namespace clb {

/// What stands around a printed grid's rows.
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

/// The grid as an HTML document of its own, ready for paper: the visible columns with their
/// captions in displayed order, all rows that are not folded away with group headings and footers,
/// the totals below their columns. Calculated cells and footers are fetched. The line for a new row
/// is left out.
std::string GridHtml(GridComponent& grid, const GridPage& page);

}  // namespace clb
